#include "device.h"
#include "factorynumberdialog.h"
#include "modelline.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

class TestFactoryNumberDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(m_line.start()); }

    void cleanup() { m_line.stop(); }

    void write_data()
    {
        addColumns<QString, int, quint32>({"model", "address", "code"});
        QTest::addColumn<QString>("outcome"); // written, refused (nothing more sent), or not written
        QTest::newRow("TCV-C, right code") << "TCV-C" << 0 << 12345u << "written";
        QTest::newRow("QP-1C, right code") << "QP-1C" << 1 << 12345u << "written";
        QTest::newRow("pH-7702, right code") << "pH-7702" << 2 << 12345u << "written";
        QTest::newRow("TCV-C, wrong code") << "TCV-C" << 0 << 54321u << "refused";
        QTest::newRow("largest code, wrong") << "QP-1C" << 1 << 4294967295u << "refused";
        QTest::newRow("code 0 opens nothing") << "pH-7702" << 2 << 0u << "not written";
    }

    void write()
    {
        QFETCH(QString, model);
        QFETCH(int, address);
        QFETCH(quint32, code);
        QFETCH(QString, outcome);
        Device* device = m_line.identify(model, address);
        QVERIFY(device);
        const QByteArray oldId = device->hartDeviceID();
        const QVariant oldSimId = m_line.sim.param(address, "device_id");
        FactoryNumberDialog dialog(device);
        QCOMPARE(dialog.addressText(), QString::fromLatin1(device->hartAddress().toHex(' ').toUpper()));

        const int before = int(m_line.sim.line().requests().size());
        const bool written = outcome == QLatin1String("written");
        QCOMPARE(dialog.writeFactoryNumber(code, 0x123456), written);
        QCOMPARE(dialog.written(), written);

        const QList<hartsim::RequestRecord> served = requestsSince(before);
        QVERIFY(!served.isEmpty());
        QCOMPARE(int(served.first().command), 190);
        const bool sent194 = std::any_of(served.begin(), served.end(), [](const auto& r) { return r.command == 194; });
        if (outcome == QLatin1String("refused")) {
            QCOMPARE(served.size(), 1);
            QVERIFY2(dialog.statusText().startsWith(QStringLiteral("The access code was refused: ")),
                     qPrintable(dialog.statusText()));
        } else {
            QVERIFY(sent194);
            // Access is closed at the end, whatever the number did.
            QCOMPARE(int(served.last().command), 190);
            QCOMPARE(served.last().data, QByteArray(4, '\0'));
        }
        if (written) {
            QCOMPARE(m_line.sim.param(address, "device_id").toInt(), 0x123456);
            QCOMPARE(device->hartDeviceID(), hx("123456"));
            QCOMPARE(device->hartAddress().right(3), hx("123456"));
            QCOMPARE(dialog.addressText(), QString::fromLatin1(device->hartAddress().toHex(' ').toUpper()));
            QCOMPARE(dialog.statusText(),
                     QStringLiteral("Factory number 1193046 written. Long address: %1.").arg(dialog.addressText()));
        } else {
            QCOMPARE(m_line.sim.param(address, "device_id"), oldSimId);
            QCOMPARE(device->hartDeviceID(), oldId);
        }
    }

    void writeButton_data()
    {
        addColumns<QString, bool>({"codeText", "sent"});
        QTest::newRow("right code") << "12345" << true;
        QTest::newRow("empty code") << "" << false;
        QTest::newRow("code beyond 32 bits") << "4294967296" << false;
    }

    void writeButton()
    {
        QFETCH(QString, codeText);
        QFETCH(bool, sent);
        Device* device = m_line.identify("TCV-C", 0);
        QVERIFY(device);
        FactoryNumberDialog dialog(device);
        auto* number = dialog.findChild<QSpinBox*>("spinNumber");
        QCOMPARE(number->value(), 0x009101); // the present number
        number->setValue(0xABCDEF);
        QCOMPARE(dialog.findChild<QLabel*>("valueNumberHex")->text(), QStringLiteral("0x AB CD EF"));
        auto* edit = dialog.findChild<QLineEdit*>("editCode");
        QCOMPARE(edit->echoMode(), QLineEdit::Password);
        edit->setText(codeText);

        const int before = int(m_line.sim.line().requests().size());
        QTest::mouseClick(dialog.findChild<QPushButton*>("buttonWrite"), Qt::LeftButton);
        QCOMPARE(requestsSince(before).isEmpty(), !sent);
        QCOMPARE(m_line.sim.param(0, "device_id").toInt(), sent ? 0xABCDEF : 0x009101);
        if (!sent)
            QCOMPARE(dialog.statusText(), QStringLiteral("The access code is a number from 0 to 4294967295."));
    }

private:
    // The commands served since the given count of requests.
    QList<hartsim::RequestRecord> requestsSince(int count) { return m_line.sim.line().requests().mid(count); }

    ModelLine m_line;
};

QTEST_MAIN(TestFactoryNumberDialog)
#include "tst_factorynumberdialog.moc"
