#include "columns.h"
#include "commonwidget.h"
#include "defaultdevicewidget.h"
#include "editorfixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSpinBox>

// The identification tab in the default editor, against a simulated TCV-C at
// polling address 0 and a HART 5 device at 5.
class TestCommonWidget : public QObject, public EditorFixture<DefaultDeviceWidget>
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(startLine({{"TCV-C", {{"polling_address", 0}, {"tag", "TT-101"}, {"long_tag", "REACTOR ONE"}}},
                           {"hart5", {{"polling_address", 5}, {"tag", "OLD-5"}}}}));
    }

    void init() { QVERIFY(openEditor(0, QStringLiteral("TCV-C"), false)); }

    void cleanup()
    {
        closeEditor();
        line.sim.setParam(0, "write_protection", 0);
        line.sim.setParam(0, "tag", "TT-101");
    }

    void checks_data()
    {
        // typed: into the tag or long tag field
        // box: "title|text" start of the box, empty for none and a good check
        addColumns<int, QString, QString, int, QString, QList<int>>(
            {"address", "button", "typed", "lostCommand", "box", "sent"});
        const QString none;
        const QList<int> tail = {48, 7, 13, 15, 16};
        QTest::newRow("address") << 0 << "btnCheck" << none << -1 << none << QList<int>{0} + tail;
        QTest::newRow("tag") << 0 << "btnCheckByTag" << QString("tt-101") << -1 << none << QList<int>{11} + tail;
        QTest::newRow("long tag") << 0 << "btnCheckByLongTag" << QString("REACTOR ONE") << -1 << none
                                  << QList<int>{21} + tail;
        QTest::newRow("tag mismatch")
            << 0 << "btnCheckByTag" << QString("TT-101") << -1
            << "Device identification by tag|ERROR: Tags not equal!\nSend: 'TT-101'\nResv: 'OTHER'"
            << QList<int>{11, 48, 7, 13};
        QTest::newRow("lost answer") << 0 << "btnCheck" << none << 15 << "Device identification |"
                                     << QList<int>{0, 48, 7, 13, 15};
        QTest::newRow("empty tag") << 0 << "btnCheckByTag" << QString("   ") << -1
                                   << "Device identification by tag|Tag is empty!" << QList<int>();
        // Revision 5 has no command 7: the address of the check is the device's.
        QTest::newRow("HART 5") << 5 << "btnCheck" << none << -1 << none << QList<int>{0, 48, 13, 15, 16};
    }

    void checks()
    {
        QFETCH(int, address);
        QFETCH(QString, button);
        QFETCH(QString, typed);
        QFETCH(int, lostCommand);
        QFETCH(QString, box);
        QFETCH(QList<int>, sent);
        device->setAddress(address);
        child<QSpinBox>("spnPollingAddress")->setValue(address);
        child<QLineEdit>(button == "btnCheckByLongTag" ? "txtLongTag" : "txtTag")->setText(typed);
        if (lostCommand >= 0) {
            hartsim::Fault fault;
            fault.command = lostCommand;
            line.sim.addFault(address, fault);
        }
        if (QTest::currentDataTag() == QLatin1String("tag mismatch")) // the device's tag changes before command 13
            connect(
                device, &Device::modbusMessage, this,
                [this](int, const QString& text) {
                    if (text.contains("(cmd=13)"))
                        line.sim.setParam(0, "tag", "OTHER");
                },
                Qt::DirectConnection);

        const QStringList seen = clickAnswering(button);
        QCOMPARE(commands(), sent);
        QCOMPARE(seen.size(), box.isEmpty() ? 0 : 1);
        if (!box.isEmpty())
            QVERIFY2(seen.first().startsWith(box), qPrintable(seen.first()));
        if (sent.isEmpty())
            return;
        QCOMPARE(green(), box.isEmpty());
        QCOMPARE(verdict().contains("completed with errors"), !box.isEmpty());
        // Once the identity is in, the buttons are on, even when a later read failed.
        QVERIFY(child<QPushButton>("btnReset")->isEnabled() && child<QPushButton>("btnRefresh")->isEnabled());
        QCOMPARE(device->getDeviceInfo("polling_address").toInt(), address);
        if (box.isEmpty())
            QCOMPARE(child<QLineEdit>("txtTag")->text(), device->getDeviceInfoString("tag"));
    }

    void refusedWhileAnotherRuns()
    {
        checkDevice();
        hartsim::Fault slow;
        slow.kind = hartsim::Fault::Delay;
        slow.command = 13;
        slow.delayMs = 300;
        line.sim.addFault(0, slow);
        // A click on the live values panel while the check waits for command 13.
        QTimer::singleShot(100, this, [this]() { click("btnRefresh"); });
        click("btnCheck");
        QVERIFY(verdict().contains("completed successfully"));
        QVERIFY(!commands().contains(3));
    }

    void tagAndMessage()
    {
        checkDevice();
        QCOMPARE(child<QPushButton>("btnReadSaveMessage")->text(), QStringLiteral("Read"));
        child<QLineEdit>("txtTag")->setText("pt-9");
        QCOMPARE(child<QLineEdit>("txtTag")->text(), QStringLiteral("PT-9")); // packed ASCII: upper case
        QVERIFY(DeviceWidget::isFieldModified(child<QLineEdit>("txtTag")));
        QCOMPARE(child<QPushButton>("btnSaveTagDescDate")->text(), QStringLiteral("Save"));
        QCOMPARE(clickAnswering("btnSaveTagDescDate", {QMessageBox::Yes}),
                 QStringList{"Writing tag, descriptor and date|Do you want to save your changes of tag, "
                             "descriptor and date?"});
        QCOMPARE(line.sim.param(0, "tag").toString().trimmed(), QStringLiteral("PT-9"));
        QVERIFY(!DeviceWidget::isFieldModified(child<QLineEdit>("txtTag")));
        line.sim.setParam(0, "message", "HELLO");
        line.port->setClosePortAfterTransaction(true);
        click("btnReadSaveMessage");
        line.port->setClosePortAfterTransaction(false);
        QVERIFY(!line.port->hart().isOpen()); // the port says so
        QCOMPARE(child<QLineEdit>("txtMessage")->text().trimmed(), QStringLiteral("HELLO"));
        QCOMPARE(commands(), (QList<int>{18, 12}));
    }

    void writeProtection()
    {
        checkDevice();
        auto* box = child<QCheckBox>("chkWriteProtection");
        {
            ModalAnswerer cancel({QMessageBox::Cancel});
            box->setChecked(true);
        }
        QVERIFY(!box->isChecked());
        {
            ModalAnswerer yes({QMessageBox::Yes});
            box->setChecked(true);
        }
        QCOMPARE(line.sim.param(0, "write_protection").toInt(), 1);
        {
            // Every write stops before the line; the box cannot be cleared.
            ModalAnswerer answerer;
            click("btnSaveDampingTime");
            box->setChecked(false);
            QCOMPARE(answerer.seen(), (QStringList{"Writing damping time|The device is write-protected!",
                                                   "Write protection|\nTo remove write protection is possible only\n"
                                                   "through the menu of the device!"}));
        }
        QVERIFY(box->isChecked());
        QCOMPARE(commands(), (QList<int>{129, 15}));
    }

    void protectionSeenInPassing()
    {
        checkDevice();
        line.sim.setParam(0, "write_protection", 1); // set at the device itself
        const QStringList seen = clickAnswering("btnSaveDampingTime", {QMessageBox::Yes, QMessageBox::Ok});
        QVERIFY(child<QCheckBox>("chkWriteProtection")->isChecked());
        QCOMPARE(device->getDeviceInfo("write_protection").toInt(), 1);
        QVERIFY(verdict().contains("completed with errors"));
        QCOMPARE(seen.size(), 2); // the question, then the device's refusal
        QVERIFY2(seen.last().contains("write protect", Qt::CaseInsensitive), qPrintable(seen.last()));
    }

    void wrongIdentityRefused()
    {
        editor->commonWidget()->setExpectedCodes(0xE0, 0x94); // a pH meter is expected
        QCOMPARE(clickAnswering("btnCheck", {QMessageBox::Cancel}),
                 QStringList{"Check device|Wrong template TCV-C for\ndevice type code = 0x91E0 !!!\n\nContinue ?"});
        QCOMPARE(commands(), (QList<int>{0, 48})); // nothing more is asked of it
        QVERIFY(!child<QPushButton>("btnReset")->isEnabled());
        QVERIFY(verdict().contains("completed with errors"));
    }

private:
    // A check at address 0 that went well.
    void checkDevice()
    {
        clickAnswering("btnCheck");
        QVERIFY2(verdict().contains("completed successfully"), qPrintable(verdict()));
        clearLog();
    }
};

QTEST_MAIN(TestCommonWidget)
#include "tst_commonwidget.moc"
