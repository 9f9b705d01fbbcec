#include "commandwidget.h"
#include "devicewidget.h"
#include "modelline.h"
#include "unibaseinput.h"

#include <QPushButton>
#include <QtTest>

static void addCountThenBytes(CommandWidget& widget, int count, const QByteArray& bytes = QByteArray())
{
    for (int i = 0; i < count + bytes.size(); ++i) {
        widget.findChild<UniBaseInput*>("txtByte")->setIntValue(i < count ? i : quint8(bytes.at(i - count)));
        widget.findChild<QPushButton*>("btnAddByte")->click();
    }
}

class TestCommandWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { m_line.stop(); }

    void parseMask_data()
    {
        addColumns<QString, QByteArray, QString>({"mask", "answer", "result"});
        QTest::addColumn<int>("error"); // none, bad type, bad length, text without length, past the end
        QTest::newRow("b i2 f") << "b i2 f" << hx("05123440490fdb") << "5 | 4660 | 3.141593 | " << 0;
        QTest::newRow("5t6") << "5t6" << hx("000000000004 20c41461c8") << "ABCDEFGH | " << 0;
        QTest::newRow("i is 3 bytes, blanks") << "  i  B" << hx("01020304") << "66051 | 4 | " << 0;
        QTest::newRow("b past the end is 0") << "3b" << hx("0a") << "0 | " << 0;
        QTest::newRow("x") << "x" << hx("0a") << "" << 1;
        QTest::newRow("1b2x, offset kept") << "b 1b2x b" << hx("0a0b") << "10 | 11 | " << 2;
        QTest::newRow("t without length") << "t" << hx("0a") << "" << 3;
        QTest::newRow("later error wins") << "1b2x + b" << hx("0a") << "10 | " << 1;
        QTest::newRow("i past the end") << "i" << hx("0102") << "" << 4;
        QTest::newRow("t far past the end") << "99999999999t3" << hx("0a") << "" << 4;
    }

    void parseMask()
    {
        QFETCH(QString, mask);
        QFETCH(QByteArray, answer);
        QFETCH(int, error);
        const QStringList errors{"", "Invalid type char", "Invalid lenght char", "Invalid text lenght",
                                 "Beyond the end of the answer"};
        Port port;
        QString message;
        QTEST(CommandWidget::parseMask(mask, answer, &port, &message), "result");
        QCOMPARE(message, errors.at(error));
    }

    void insertion_data()
    {
        // filled: bytes 00, 01, ... in the buffer first
        // start: selected characters of the buffer field
        // button: byte aa, float 1.0 or int 0x1234 of two bytes
        addColumns<int, int, int, QString, int, QByteArray>({"filled", "start", "length", "button", "size", "tail"});
        QTest::newRow("append") << 2 << 0 << 0 << "btnAddByte" << 3 << hx("0001aa");
        QTest::newRow("replace one") << 3 << 4 << 1 << "btnAddByte" << 3 << hx("00aa02");
        QTest::newRow("two by a float") << 3 << 0 << 5 << "btnAddFloat" << 5 << hx("3f80000002");
        QTest::newRow("at a blank") << 2 << 2 << 1 << "btnAddInt" << 4 << hx("00123401");
        QTest::newRow("byte into 63") << 63 << 0 << 0 << "btnAddByte" << 64 << hx("3eaa");
        QTest::newRow("no byte into 64") << 64 << 0 << 0 << "btnAddByte" << 64 << hx("3f");
        QTest::newRow("float into 60") << 60 << 0 << 0 << "btnAddFloat" << 64 << hx("3f800000");
        QTest::newRow("no int into 61") << 61 << 0 << 0 << "btnAddInt" << 61 << hx("3c");
    }

    void insertion()
    {
        QFETCH(int, filled);
        QFETCH(int, start);
        QFETCH(int, length);
        QFETCH(QString, button);
        QFETCH(QByteArray, tail);
        CommandWidget widget(nullptr);
        addCountThenBytes(widget, filled);
        widget.findChild<QLineEdit*>("txtCmd")->setSelection(start, length);
        widget.findChild<UniBaseInput*>("txtByte")->setIntValue(0xAA);
        widget.findChild<QObject*>("dspnValue")->setProperty("value", 1.0);
        widget.findChild<QLineEdit*>("txtInt")->setText("0x1234");
        widget.findChild<QPushButton*>(button)->click();
        QTEST(int(widget.buffer().size()), "size");
        QCOMPARE(widget.buffer().right(tail.size()), tail);
    }

    void sendCommand1_data()
    {
        addColumns<bool, QByteArray, QByteArray>({"forced", "buffer", "sent"});
        QTest::newRow("known command: read, buffer left") << false << hx("aa") << QByteArray();
        QTest::newRow("forced with data: custom write") << true << hx("aa") << hx("aa");
        QTest::newRow("forced, empty buffer: custom read") << true << QByteArray() << QByteArray();
    }

    void sendCommand1()
    {
        QFETCH(bool, forced);
        QFETCH(QByteArray, buffer);
        QVERIFY(m_line.start());
        Device* device = m_line.identify(QStringLiteral("TCV-C"), 0);
        QVERIFY(device);
        DeviceWidget owner(nullptr, device);
        CommandWidget widget(&owner);
        widget.onDeviceChanged(device);
        widget.findChild<QObject*>("spnCmd")->setProperty("value", 1);
        widget.findChild<QObject*>("chkForceCustom")->setProperty("checked", forced);
        addCountThenBytes(widget, 0, buffer);
        widget.findChild<QPushButton*>("btnSendCustomCmd")->click();

        const hartsim::RequestRecord record = m_line.sim.record(2);
        QCOMPARE(int(record.command), 1);
        QTEST(record.data, "sent");
        // The answer's data, unit and value, stands ahead of the checksum.
        QCOMPARE(widget.findChild<QLineEdit*>("txtAnswer")->text(), record.answer.chopped(1).right(5).toHex(' '));
        QCOMPARE(device->messageLog().join("").contains("### custom command ### 1"), forced);
    }

private:
    ModelLine m_line;
};

QTEST_MAIN(TestCommandWidget)
#include "tst_commandwidget.moc"
