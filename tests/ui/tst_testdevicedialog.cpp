#include "appsettings.h"
#include "debugqt.h"
#include "modalanswerer.h"
#include "modelline.h"
#include "testdevicedialog.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>

using hartsim::Fault;

namespace {

// A General test of the user's on the device at address 3, from its commands.
const char* const UserTest = R"({"name": "%1", "template": "General", "device": {"commands": %2}})";

} // namespace

class TestTestDeviceDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void samples_data();
    void samples();
    void errorsCounted_data();
    void errorsCounted();
    void cancelAndContinue();
    void deviceMismatchAsks();
    void templatesOfferedAndSaved();

private:
    QString writeTest(const QString& name, const QByteArray& content);
    static bool selectTest(TestDeviceDialog& dialog, const QString& fileName);
    Device* device(const QString& templateName, int address);

    ModelLine m_line;
    QScopedPointer<QTemporaryDir> m_userDir;
};

void TestTestDeviceDialog::init()
{
    DebugQt::instance(0, nullptr);
    QString error;
    QVERIFY2(m_line.start(&error), qPrintable(error));
    m_userDir.reset(new QTemporaryDir);
    AppSettings::instance()->testsPath = m_userDir->path();
}

void TestTestDeviceDialog::cleanup()
{
    m_line.stop();
}

QString TestTestDeviceDialog::writeTest(const QString& name, const QByteArray& content)
{
    const QString fileName = m_userDir->filePath(name);
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        return QString();
    return fileName;
}

bool TestTestDeviceDialog::selectTest(TestDeviceDialog& dialog, const QString& fileName)
{
    auto* box = dialog.findChild<QComboBox*>("cmbTemplates");
    const int index = box->findData(fileName, Qt::ToolTipRole);
    box->setCurrentIndex(index);
    return index >= 0;
}

Device* TestTestDeviceDialog::device(const QString& templateName, int address)
{
    Device* device = m_line.identify(templateName, address);
    return device && device->readDevice(13) ? device : nullptr;
}

void TestTestDeviceDialog::samples_data()
{
    QTest::addColumn<QString>("templateName");
    QTest::addColumn<int>("address");
    QTest::addColumn<QString>("file");
    QTest::newRow("TCV-C") << "TCV-C" << 0 << ":/tests/tcv-c.tpl";
    QTest::newRow("DX-C") << "DX-C" << 4 << ":/tests/dx-c.tpl";
    QTest::newRow("QP-1C") << "QP-1C" << 1 << ":/tests/qp-1c.tpl";
    QTest::newRow("pH-7702") << "pH-7702" << 2 << ":/tests/ph-7702.tpl";
    QTest::newRow("General") << "General" << 3 << ":/tests/general.tpl";
}

void TestTestDeviceDialog::samples()
{
    QFETCH(QString, templateName);
    QFETCH(int, address);
    QFETCH(QString, file);
    QString error;
    if (templateName == QLatin1String("DX-C"))
        QVERIFY2(
            m_line.sim().line().addDevice(hartsim::SimDevice::create("DX-C", {{"polling_address", 4}}, &error), &error),
            qPrintable(error));
    const QVariant tag = m_line.sim().param(address, "tag");
    Device* d = device(templateName, address);
    QVERIFY(d);
    TestDeviceDialog dialog;
    dialog.setDevice(d);
    QVERIFY(selectTest(dialog, file));
    QSignalSpy changed(&dialog, &TestDeviceDialog::changed);
    dialog.on_btnStart_clicked();

    QVERIFY2(dialog.testErrors() == 0 && dialog.errorCounts().isEmpty(), qPrintable(dialog.report()));
    const QString report = dialog.report();
    for (const char* text : {"###### Test round 1 ######", "Test of command 0 completed.", "Total round errors: 0",
                             "Total test errors: 0", "No errors."})
        QVERIFY2(report.contains(QLatin1String(text)), text);
    // Whatever the test wrote, the device is left as it was found.
    QCOMPARE(changed.count(), templateName == QLatin1String("DX-C") ? 0 : 1);
    QCOMPARE(m_line.sim().param(address, "polling_address").toInt(), address);
    QCOMPARE(m_line.sim().param(address, "tag").toString().trimmed(), tag.toString());
    QCOMPARE(m_line.sim().param(address, "damping_time").toDouble(), 0.5);
    QCOMPARE(d->port()->isOpened(), templateName != QLatin1String("General"));
}

void TestTestDeviceDialog::errorsCounted_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("validation");     // validation errors
    QTest::addColumn<QString>("otherError"); // a part of the one error beside them
    // An answer without data where the polling address belongs: the read
    // goes well, the value does not come back.
    QTest::newRow("validation") << int(Fault::ResponseCode) << 7 << 1 << QString();
    // The write is lost: counted, and the read-back finds the old address and mode.
    QTest::newRow("write fails") << int(Fault::NoAnswer) << 6 << 2 << "timeout";
}

void TestTestDeviceDialog::errorsCounted()
{
    QFETCH(int, kind);
    QFETCH(int, command);
    QFETCH(int, validation);
    QFETCH(QString, otherError);
    const QString file = writeTest("errors.tpl", QString::fromLatin1(UserTest)
                                                     .arg("errors", R"([{"number": 6, "cycles": 2, "read_cmd": 7,
                                              "parameters": {"polling_address": [15, 3], "current_loop_mode": [0, 1]}},
                                             {"number": 13, "close_port": true}])")
                                                     .toUtf8());
    Device* d = device("General", 3);
    QVERIFY(d);
    Fault fault;
    fault.kind = Fault::Kind(kind);
    fault.command = command;
    fault.code = 14; // a warning: the answer counts as good
    fault.count = 1;
    m_line.sim().addFault(-1, fault); // the device's address changes on the way
    TestDeviceDialog dialog;
    dialog.setDevice(d);
    QVERIFY(selectTest(dialog, file));
    dialog.on_btnStart_clicked();

    const QMap<QString, int> counts = dialog.errorCounts();
    QVERIFY2(counts.value("validation errors") == validation, qPrintable(dialog.report()));
    QCOMPARE(dialog.testErrors(), validation + (otherError.isEmpty() ? 0 : 1));
    const QStringList keys = counts.keys();
    QVERIFY2(otherError.isEmpty() || keys.filter(otherError, Qt::CaseInsensitive).size() == 1,
             qPrintable(keys.join('|')));
    const QString report = dialog.report();
    QVERIFY(report.contains("polling_address validation error: send:15 recv:"));
    QVERIFY(report.contains("total command 6 errors: " + QString::number(dialog.testErrors())));
    // The run went on with the next command, which closed the port.
    QVERIFY(report.contains("Test of command 13 completed."));
    QVERIFY(!d->port()->isOpened());
    QCOMPARE(m_line.sim().param(3, "polling_address").toInt(), 3);
}

void TestTestDeviceDialog::cancelAndContinue()
{
    const QString file = writeTest(
        "cancel.tpl", QString::fromLatin1(UserTest)
                          .arg("cancel", R"([{"number": 1, "cycles": 2}, {"number": 2, "cycles": 2}, {"number": 12}])")
                          .toUtf8());
    Device* d = device("General", 3);
    QVERIFY(d);
    TestDeviceDialog dialog;
    dialog.setDevice(d);
    QVERIFY(selectTest(dialog, file));
    // Cancel as soon as the second command shows.
    QTimer canceller;
    connect(&canceller, &QTimer::timeout, &dialog, [&dialog]() {
        QProgressDialog* progress = dialog.progressDialog();
        if (progress && progress->labelText().startsWith("Test command 2 "))
            progress->cancel();
    });
    canceller.start(5);
    dialog.on_btnStart_clicked();
    canceller.stop();

    QString report = dialog.report();
    QVERIFY(report.contains("Test of command 1 completed."));
    QVERIFY(report.contains("Test of command 2 was interrupted."));
    QVERIFY(!report.contains("readDevice(12)"));
    QVERIFY(dialog.findChild<QPushButton*>("btnContinue")->isEnabled());

    dialog.on_btnContinue_clicked();
    report = dialog.report();
    QVERIFY(report.contains("Test of command 2 completed."));
    QVERIFY(report.contains("readDevice(12)"));
    QVERIFY(report.contains("Total test errors: 0"));
    QCOMPARE(report.count("Test of command 1 completed."), 1);
    QVERIFY(!dialog.findChild<QPushButton*>("btnContinue")->isEnabled());
}

void TestTestDeviceDialog::deviceMismatchAsks()
{
    m_line.sim().setParam(0, "tag", "XX-1");
    Device* d = device("TCV-C", 0);
    QVERIFY(d);
    TestDeviceDialog dialog;
    dialog.setDevice(d);
    QVERIFY(selectTest(dialog, ":/tests/tcv-c.tpl"));
    ModalAnswerer answerer({QMessageBox::Cancel});
    dialog.on_btnStart_clicked();

    QCOMPARE(answerer.seen().size(), 1);
    QVERIFY2(answerer.seen().at(0).contains("tag: the test expects TT-101, the device has XX-1"),
             qPrintable(answerer.seen().at(0)));
    QVERIFY(dialog.report().contains("The test did not run"));
    // Only the reads of the check went out.
    for (const hartsim::RequestRecord& record : m_line.sim().line().requests())
        QVERIFY2(QList<int>({0, 7, 13, 15}).contains(record.command), qPrintable(QString::number(record.command)));
}

void TestTestDeviceDialog::templatesOfferedAndSaved()
{
    QVERIFY(!writeTest("bad.tpl", "{\"template\": \"General\",\n \"device\": }").isEmpty());
    QVERIFY(!writeTest("other.tpl", R"({"template": "QP-1C", "device": {"commands": [{"number": 1}]}})").isEmpty());
    const QString mine = writeTest("mine.tpl", QString::fromLatin1(UserTest).arg("mine", "[{\"number\": 1}]").toUtf8());
    Device* d = device("General", 3);
    QVERIFY(d);
    TestDeviceDialog dialog;
    dialog.setDevice(d);

    // The built-in test and the user's good one; the broken file said in one line.
    auto* box = dialog.findChild<QComboBox*>("cmbTemplates");
    QCOMPARE(box->count(), 2);
    QCOMPARE(box->itemData(1, Qt::ToolTipRole).toString(), mine);
    const QString message = dialog.findChild<QLabel*>("lblMessage")->text();
    QVERIFY2(message.startsWith("Failed to load test ") && message.contains("bad.tpl (line 2: ") &&
                 !message.contains("other.tpl") && !message.contains('\n'),
             qPrintable(message));

    QVERIFY(selectTest(dialog, mine));
    dialog.on_btnStart_clicked();
    const QString reportFile = m_userDir->filePath("report.txt");
    const QString copy = m_userDir->filePath("copy.tpl");
    {
        ModalAnswerer answerer({reportFile});
        dialog.on_btnSaveReport_clicked();
    }
    QFile report(reportFile);
    QVERIFY(report.open(QIODevice::ReadOnly));
    const QString saved = QString::fromUtf8(report.readAll());
    QVERIFY(saved.startsWith("Device test report\nTest: mine (" + mine + ")\nDevice: General_{FT-104}"));
    QVERIFY(saved.endsWith(dialog.report()));

    // A copy of a built-in test is the user's to edit.
    QVERIFY(selectTest(dialog, ":/tests/general.tpl"));
    {
        ModalAnswerer answerer({copy});
        dialog.on_btnSaveAs_clicked();
    }
    QFile source(":/tests/general.tpl");
    QFile target(copy);
    QVERIFY(source.open(QIODevice::ReadOnly) && target.open(QIODevice::ReadWrite));
    QCOMPARE(target.readAll(), source.readAll());
}

QTEST_MAIN(TestTestDeviceDialog)
#include "tst_testdevicedialog.moc"
