#include "debugqt.h"
#include "device.h"
#include "modalanswerer.h"
#include "modelline.h"
#include "port.h"
#include "rtuporteditor.h"
#include "server.h"
#include "simulatedline.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

const QString OwnName = QStringLiteral("/dev/calvane-test-own");
const QString OtherName = QStringLiteral("/dev/ttyS1");

class TestRTUPortEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        DebugQt::instance(0x8ED0001, nullptr);
        QString error;
        QVERIFY2(m_sim.start({{"generic", {{"polling_address", 0}}}}, &error), qPrintable(error));
    }

    void cleanupTestCase() { m_sim.stop(); }

    void init()
    {
        m_server = new Server;
        m_port = m_server->addPort(QStringLiteral("Port 0"));
        QVERIFY(m_port->setSerialName(OwnName));
        QVERIFY(m_server->addPort(QStringLiteral("Port 1"))->setSerialName(OtherName));
        m_editor = new RTUPortEditor;
        m_editor->setItem(m_port);
    }

    void cleanup()
    {
        delete m_editor;
        delete m_server;
    }

    void serialName_data()
    {
        // typed: typed and confirmed, or chosen from the list
        addColumns<bool, bool>({"typed", "ofTheLine"});
        QTest::newRow("typed, another port's") << true << false;
        QTest::newRow("chosen, another port's") << false << false;
        QTest::newRow("typed, the line's") << true << true;
    }

    void serialName()
    {
        QFETCH(bool, typed);
        QFETCH(bool, ofTheLine);
        const QString name = ofTheLine ? m_sim.path() : OtherName;
        QSignalSpy changed(m_editor, &RTUPortEditor::changed);
        QComboBox* box = serialBox();
        // Shown and in focus: the warning takes the focus from the edit field.
        m_editor->show();
        QApplication::setActiveWindow(m_editor);
        box->lineEdit()->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_editor));
        QVERIFY(box->lineEdit()->hasFocus());
        ModalAnswerer answerer;
        if (typed) {
            box->setEditText(name);
            QTest::keyClick(box->lineEdit(), Qt::Key_Return);
        } else {
            box->addItem(name, name);
            box->setCurrentIndex(box->findData(name));
        }
        QCOMPARE(changed.count(), ofTheLine ? 1 : 0);
        QCOMPARE(answerer.seen(),
                 ofTheLine ? QStringList() : QStringList{"Port configuration|Port /dev/ttyS1 already exists!"});
        QCOMPARE(m_port->serialName(), ofTheLine ? name : OwnName);
        QCOMPARE(box->currentText(), ofTheLine ? name : OwnName);
        if (!ofTheLine)
            QCOMPARE(box->currentIndex(), -1);
    }

    void unlistedNameKept()
    {
        ModalAnswerer answerer;
        // Coming from another port must not offer that port's name to this one.
        m_editor->setItem(m_server->portByName(QStringLiteral("Port 1")));
        m_editor->setItem(m_port);
        child<QPushButton>("btnRefresh")->click();
        QCOMPARE(answerer.seen(), QStringList());
        QCOMPARE(serialBox()->currentIndex(), -1);
        QCOMPARE(serialBox()->currentText(), OwnName);
        QCOMPARE(m_port->serialName(), OwnName);
    }

    void lineBoxes()
    {
        // The port's 1200 8O1 is the one choice of each box, found by the item data.
        QStringList boxes;
        for (const char* name : {"baudrateComboBox", "databitsComboBox", "parityComboBox", "stopbitsComboBox"}) {
            auto* box = child<QComboBox>(name);
            boxes << QString("%1 %2 %3 %4")
                         .arg(box->count())
                         .arg(box->currentIndex())
                         .arg(box->itemText(0), box->itemData(0).toString());
        }
        QCOMPARE(boxes, QStringList({"1 0 1200 1200", "1 0 8 8", "1 0 odd O", "1 0 1 1"}));
    }

    void spinBoxes_data()
    {
        addColumns<QString, QString, int, int>({"box", "key", "value", "defaultValue"});
        QTest::newRow("request") << "spnRequestTimeout" << QString("request_timeout") << 123 << 200;
        QTest::newRow("response") << "spnResponseTimeout" << QString("response_timeout") << 123 << 370;
        QTest::newRow("byte") << "spnByteTimeout" << QString("byte_timeout") << 123 << 50;
        QTest::newRow("preambles") << "spnStartPreamblesCount" << QString("initial_number_of_preambles") << 23 << 10;
    }

    void spinBoxes()
    {
        QFETCH(QString, box);
        QFETCH(QString, key);
        QFETCH(int, value);
        QFETCH(int, defaultValue);
        auto* spin = m_editor->findChild<QSpinBox*>(box);
        QSignalSpy changed(m_editor, &RTUPortEditor::changed);
        spin->setValue(value);
        // Stored where the configuration file takes it from, and read back.
        Port reloaded;
        reloaded.load(m_port->save());
        QCOMPARE(reloaded.save().value(key).toInt(), value);
        spin->setValue(0);
        QCOMPARE(m_port->save().value(key).toInt(), defaultValue);
        QCOMPARE(spin->value(), defaultValue);
        QCOMPARE(changed.count(), 2);
    }

    void uncheckingClosePortClosesIt()
    {
        QVERIFY(m_port->setSerialName(m_sim.path()));
        m_port->setClosePortAfterTransaction(true);
        QVERIFY2(m_port->openHart(), qPrintable(m_port->errorText()));
        m_editor->setItem(m_port);
        auto* box = child<QCheckBox>("chkTransactionClosePort");
        QVERIFY(box->isChecked());
        QSignalSpy changed(m_editor, &RTUPortEditor::changed);
        box->setChecked(false);
        QVERIFY(!m_port->closePortAfterTransaction());
        QVERIFY(!m_port->isOpened());
        QCOMPARE(changed.count(), 1);
    }

    void check_data()
    {
        // onLine: the port open before
        addColumns<bool, QString>({"onLine", "status"});
        QTest::newRow("missing device") << false
                                        << "<p style=\"color: red;\">Failure: not such device '/nonexistent/tty'.</p>";
        QTest::newRow("simulated line") << true << "<p style=\"color: green;\">Success.</p>";
    }

    void check()
    {
        QFETCH(bool, onLine);
        QVERIFY(m_port->setSerialName(onLine ? m_sim.path() : QStringLiteral("/nonexistent/tty")));
        QVERIFY(!onLine || m_port->openHart());
        m_editor->setItem(m_port);
        child<QPushButton>("b_check")->click();
        QTEST(child<QLabel>("lbStatus")->text(), "status");
        QVERIFY(!m_port->isOpened());
        QVERIFY(!QApplication::overrideCursor());
    }

    void polledDevicesLockTheLine()
    {
        Device* device = m_port->addDevice(QStringLiteral("d1"), QStringLiteral("General"), -1);
        for (const int state : {int(Device::TagStatePolled | Device::TagStateRead), int(Device::TagStateRead)}) {
            device->setDeviceTagState(state);
            m_editor->updateButtons();
            for (QWidget* widget :
                 {static_cast<QWidget*>(serialBox()), child<QWidget>("btnRefresh"), child<QWidget>("b_check")})
                QCOMPARE(widget->isEnabled(), !(state & Device::TagStatePolled));
        }
    }

private:
    template <typename T>
    T* child(const char* name) const
    {
        return m_editor->findChild<T*>(QLatin1String(name));
    }
    QComboBox* serialBox() const { return child<QComboBox>("portChoiceComboBox"); }

    SimulatedLine m_sim;
    Server* m_server = nullptr;
    Port* m_port = nullptr;
    RTUPortEditor* m_editor = nullptr;
};

QTEST_MAIN(TestRTUPortEditor)
#include "tst_rtuporteditor.moc"
