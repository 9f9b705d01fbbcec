#include "commonwidget.h"
#include "debugqt.h"
#include "defaultdevicewidget.h"
#include "deviceline.h"
#include "modalanswerer.h"
#include "statuswidget.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

// The identification tab in the default editor, against a simulated TCV-C at
// polling address 0 and a HART 5 device at 5.
class TestCommonWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void checks_data();
    void checks();
    void refusedWhileAnotherRuns();
    void tagAndMessage();
    void writeProtection();
    void protectionSeenInPassing();
    void wrongIdentityRefused();

private:
    template <typename T>
    T* child(const char* name) const
    {
        return m_editor->findChild<T*>(QLatin1String(name));
    }
    void click(const char* button) { child<QPushButton>(button)->click(); }
    QString verdict() const { return m_editor->statusWidget()->errorText(); }
    QList<int> commands();
    // A check at address 0 that went well.
    void checkDevice();

    DeviceLine m_line;
    Device* m_device = nullptr;
    QScopedPointer<DefaultDeviceWidget> m_editor;
};

void TestCommonWidget::initTestCase()
{
    DebugQt::instance(0, nullptr);
    QVERIFY(m_line.start({{"TCV-C", {{"polling_address", 0}, {"tag", "TT-101"}, {"long_tag", "REACTOR ONE"}}},
                          {"hart5", {{"polling_address", 5}, {"tag", "OLD-5"}}}}));
    m_line.port->hart().setByteTimeout(20);
}

void TestCommonWidget::init()
{
    m_device = m_line.addDevice(0, QStringLiteral("TCV-C"));
    m_editor.reset(new DefaultDeviceWidget);
    m_editor->setItem(m_device);
    m_line.sim.line().clearLog();
}

void TestCommonWidget::cleanup()
{
    m_editor.reset();
    m_line.port->removeDevice(m_device->name());
    m_line.sim.line().clearFaults();
    m_line.sim.setParam(0, "write_protection", 0);
    m_line.sim.setParam(0, "tag", "TT-101");
}

QList<int> TestCommonWidget::commands()
{
    QList<int> list;
    for (const hartsim::RequestRecord& record : m_line.sim.line().requests())
        list << record.command;
    return list;
}

void TestCommonWidget::checkDevice()
{
    ModalAnswerer none;
    click("btnCheck");
    QVERIFY2(verdict().contains("completed successfully"), qPrintable(verdict()));
    m_line.sim.line().clearLog();
}

void TestCommonWidget::checks_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("typed"); // into the tag or long tag field
    QTest::addColumn<int>("lostCommand");
    QTest::addColumn<bool>("tagChanges"); // the device's tag changes before command 13
    QTest::addColumn<QString>("box");     // "title|text" start of the box, empty for none
    QTest::addColumn<QList<int>>("sent");
    QTest::addColumn<bool>("green");

    const QList<int> all = {0, 48, 7, 13, 15, 16};
    QTest::newRow("address") << 0 << "btnCheck"
                             << "" << -1 << false << "" << all << true;
    QTest::newRow("tag") << 0 << "btnCheckByTag"
                         << "tt-101" << -1 << false << "" << QList<int>{11, 48, 7, 13, 15, 16} << true;
    QTest::newRow("long tag") << 0 << "btnCheckByLongTag"
                              << "REACTOR ONE" << -1 << false << "" << QList<int>{21, 48, 7, 13, 15, 16} << true;
    QTest::newRow("tag mismatch")
        << 0 << "btnCheckByTag"
        << "TT-101" << -1 << true
        << "Device identification by tag|ERROR: Tags not equal!\nSend: 'TT-101'\nResv: 'OTHER'"
        << QList<int>{11, 48, 7, 13} << false;
    QTest::newRow("lost answer") << 0 << "btnCheck"
                                 << "" << 15 << false << "Device identification |" << QList<int>{0, 48, 7, 13, 15}
                                 << false;
    QTest::newRow("empty tag") << 0 << "btnCheckByTag"
                               << "   " << -1 << false << "Device identification by tag|Tag is empty!" << QList<int>()
                               << false;
    // Revision 5 has no command 7: the address of the check is the device's.
    QTest::newRow("HART 5") << 5 << "btnCheck"
                            << "" << -1 << false << "" << QList<int>{0, 48, 13, 15, 16} << true;
}

void TestCommonWidget::checks()
{
    QFETCH(int, address);
    QFETCH(QString, button);
    QFETCH(QString, typed);
    QFETCH(int, lostCommand);
    QFETCH(bool, tagChanges);
    QFETCH(QString, box);
    QFETCH(QList<int>, sent);
    QFETCH(bool, green);

    m_device->setAddress(address);
    child<QSpinBox>("spnPollingAddress")->setValue(address);
    (button == "btnCheckByLongTag" ? child<QLineEdit>("txtLongTag") : child<QLineEdit>("txtTag"))->setText(typed);
    if (lostCommand >= 0) {
        hartsim::Fault fault;
        fault.command = lostCommand;
        m_line.sim.addFault(address, fault);
    }
    if (tagChanges)
        connect(
            m_device, &Device::modbusMessage, this,
            [this](int, const QString& text) {
                if (text.contains("(cmd=13)"))
                    m_line.sim.setParam(0, "tag", "OTHER");
            },
            Qt::DirectConnection);

    ModalAnswerer answerer;
    click(qPrintable(button));
    QCOMPARE(commands(), sent);
    QCOMPARE(answerer.seen().size(), box.isEmpty() ? 0 : 1);
    if (!box.isEmpty())
        QVERIFY2(answerer.seen().first().startsWith(box), qPrintable(answerer.seen().first()));
    if (sent.isEmpty())
        return;
    QCOMPARE(verdict().contains("completed successfully"), green);
    QCOMPARE(verdict().contains("completed with errors"), !green);
    // Once the identity is in, the buttons are on, even when a later read failed.
    QVERIFY(child<QPushButton>("btnReset")->isEnabled());
    QVERIFY(child<QPushButton>("btnRefresh")->isEnabled());
    QCOMPARE(m_device->getDeviceInfo("polling_address").toInt(), address);
    if (green)
        QCOMPARE(child<QLineEdit>("txtTag")->text(), m_device->getDeviceInfoString("tag"));
}

void TestCommonWidget::refusedWhileAnotherRuns()
{
    checkDevice();
    hartsim::Fault slow;
    slow.kind = hartsim::Fault::Delay;
    slow.command = 13;
    slow.delayMs = 300;
    m_line.sim.addFault(0, slow);
    // A click on the live values panel while the check waits for command 13.
    QTimer::singleShot(100, this, [this]() { click("btnRefresh"); });
    click("btnCheck");
    QVERIFY(verdict().contains("completed successfully"));
    QVERIFY(!commands().contains(3));
}

void TestCommonWidget::tagAndMessage()
{
    checkDevice();
    QCOMPARE(child<QPushButton>("btnReadSaveMessage")->text(), QStringLiteral("Read"));
    child<QLineEdit>("txtTag")->setText("pt-9");
    QCOMPARE(child<QLineEdit>("txtTag")->text(), QStringLiteral("PT-9")); // packed ASCII: upper case
    QVERIFY(DeviceWidget::isFieldModified(child<QLineEdit>("txtTag")));
    QCOMPARE(child<QPushButton>("btnSaveTagDescDate")->text(), QStringLiteral("Save"));
    {
        ModalAnswerer yes({QMessageBox::Yes});
        click("btnSaveTagDescDate");
        QCOMPARE(yes.seen(), QStringList{"Writing tag, descriptor and date|Do you want to save your changes of tag, "
                                         "descriptor and date?"});
    }
    QCOMPARE(m_line.sim.param(0, "tag").toString().trimmed(), QStringLiteral("PT-9"));
    QVERIFY(!DeviceWidget::isFieldModified(child<QLineEdit>("txtTag")));
    m_line.sim.setParam(0, "message", "HELLO");
    m_line.port->setClosePortAfterTransaction(true);
    click("btnReadSaveMessage");
    m_line.port->setClosePortAfterTransaction(false);
    QVERIFY(!m_line.port->hart().isOpen()); // the port says so
    QCOMPARE(child<QLineEdit>("txtMessage")->text().trimmed(), QStringLiteral("HELLO"));
    QCOMPARE(commands(), (QList<int>{18, 12}));
}

void TestCommonWidget::writeProtection()
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
    QCOMPARE(m_line.sim.param(0, "write_protection").toInt(), 1);
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

void TestCommonWidget::protectionSeenInPassing()
{
    checkDevice();
    m_line.sim.setParam(0, "write_protection", 1); // set at the device itself
    ModalAnswerer answerer({QMessageBox::Yes, QMessageBox::Ok});
    click("btnSaveDampingTime");
    QVERIFY(child<QCheckBox>("chkWriteProtection")->isChecked());
    QCOMPARE(m_device->getDeviceInfo("write_protection").toInt(), 1);
    QVERIFY(verdict().contains("completed with errors"));
    QCOMPARE(answerer.seen().size(), 2); // the question, then the device's refusal
    QVERIFY2(answerer.seen().last().contains("write protect", Qt::CaseInsensitive), qPrintable(answerer.seen().last()));
}

void TestCommonWidget::wrongIdentityRefused()
{
    m_editor->commonWidget()->setExpectedCodes(0xE0, 0x94); // a pH meter is expected
    ModalAnswerer cancel({QMessageBox::Cancel});
    click("btnCheck");
    QCOMPARE(cancel.seen(),
             QStringList{"Check device|Wrong template TCV-C for\ndevice type code = 0x91E0 !!!\n\nContinue ?"});
    QCOMPARE(commands(), (QList<int>{0, 48})); // nothing more is asked of it
    QVERIFY(!child<QPushButton>("btnReset")->isEnabled());
    QVERIFY(verdict().contains("completed with errors"));
}

QTEST_MAIN(TestCommonWidget)
#include "tst_commonwidget.moc"
