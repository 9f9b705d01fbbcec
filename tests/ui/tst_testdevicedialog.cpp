#include "appsettings.h"
#include "debugqt.h"
#include "modalanswerer.h"
#include "modelline.h"
#include "testdevicedialog.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

using hartsim::Fault;

class TestTestDeviceDialog : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        DebugQt::instance(0, nullptr);
        QVERIFY(m_line.start());
        m_userDir.reset(new QTemporaryDir);
        AppSettings::instance()->testsPath = m_userDir->path();
    }

    void cleanup()
    {
        m_dialog.reset();
        m_line.stop();
    }

    void samples_data()
    {
        addColumns<QString, int, QString>({"templateName", "address", "file"});
        QTest::newRow("TCV-C") << "TCV-C" << 0 << ":/tests/tcv-c.tpl";
        QTest::newRow("DX-C") << "DX-C" << 4 << ":/tests/dx-c.tpl";
        QTest::newRow("QP-1C") << "QP-1C" << 1 << ":/tests/qp-1c.tpl";
        QTest::newRow("pH-7702") << "pH-7702" << 2 << ":/tests/ph-7702.tpl";
        QTest::newRow("General") << "General" << 3 << ":/tests/general.tpl";
    }

    void samples()
    {
        QFETCH(QString, templateName);
        QFETCH(int, address);
        QFETCH(QString, file);
        QString error;
        if (templateName == "DX-C")
            QVERIFY2(m_line.sim.line().addDevice(hartsim::SimDevice::create("DX-C", {{"polling_address", 4}}, &error),
                                                 &error),
                     qPrintable(error));
        const QVariant tag = m_line.sim.param(address, "tag");
        Device* d = open(templateName, address, file);
        QVERIFY(d);
        QSignalSpy changed(m_dialog.data(), &TestDeviceDialog::changed);
        m_dialog->on_btnStart_clicked();
        QVERIFY2(m_dialog->testErrors() == 0 && m_dialog->errorCounts().isEmpty(), qPrintable(m_dialog->report()));
        const QString report = m_dialog->report();
        for (const char* text : {"###### Test round 1 ######", "Test of command 0 completed.", "Total round errors: 0",
                                 "Total test errors: 0", "No errors."})
            QVERIFY2(report.contains(QLatin1String(text)), text);
        // Whatever the test wrote, the device is left as it was found.
        QCOMPARE(changed.count(), templateName == "DX-C" ? 0 : 1);
        QCOMPARE(m_line.sim.param(address, "polling_address").toInt(), address);
        QCOMPARE(m_line.sim.param(address, "tag").toString().trimmed(), tag.toString());
        QCOMPARE(m_line.sim.param(address, "damping_time").toDouble(), 0.5);
        QCOMPARE(d->port()->isOpened(), templateName != "General");
    }

    void errorsCounted_data()
    {
        // validation: how many validation errors; otherError: a part of the one error beside them
        addColumns<int, int, int, QString>({"kind", "command", "validation", "otherError"});
        // An answer without data where the polling address belongs: the read
        // goes well, the value does not come back.
        QTest::newRow("validation") << int(Fault::ResponseCode) << 7 << 1 << QString();
        // The write is lost: counted, and the read-back finds the old address and mode.
        QTest::newRow("write fails") << int(Fault::NoAnswer) << 6 << 2 << "timeout";
    }

    void errorsCounted()
    {
        QFETCH(int, kind);
        QFETCH(int, command);
        QFETCH(int, validation);
        QFETCH(QString, otherError);
        Device* d = open("General", 3, userTest("errors", R"([{"number": 6, "cycles": 2, "read_cmd": 7,
            "parameters": {"polling_address": [15, 3], "current_loop_mode": [0, 1]}}, {"number": 13, "close_port": true}])"));
        QVERIFY(d);
        Fault once = fault(Fault::Kind(kind), command, 14); // 14, a warning: the answer counts as good
        once.count = 1;
        m_line.sim.addFault(-1, once); // the device's address changes on the way
        m_dialog->on_btnStart_clicked();

        const QMap<QString, int> counts = m_dialog->errorCounts();
        const QString report = m_dialog->report();
        QVERIFY2(counts.value("validation errors") == validation, qPrintable(report));
        QCOMPARE(m_dialog->testErrors(), validation + (otherError.isEmpty() ? 0 : 1));
        QVERIFY2(otherError.isEmpty() || counts.keys().filter(otherError, Qt::CaseInsensitive).size() == 1,
                 qPrintable(counts.keys().join('|')));
        QVERIFY(report.contains("polling_address validation error: send:15 recv:"));
        QVERIFY(report.contains("total command 6 errors: " + QString::number(m_dialog->testErrors())));
        // The run went on with the next command, which closed the port.
        QVERIFY(report.contains("Test of command 13 completed."));
        QVERIFY(!d->port()->isOpened());
        QCOMPARE(m_line.sim.param(3, "polling_address").toInt(), 3);
    }

    void cancelAndContinue()
    {
        QVERIFY(
            open("General", 3,
                 userTest("cancel", R"([{"number": 1, "cycles": 2}, {"number": 2, "cycles": 2}, {"number": 12}])")));
        // Cancel as soon as the second command shows, in the pause after its exchange.
        m_dialog->findChild<QSpinBox*>("spnPause")->setValue(100);
        QTimer canceller;
        connect(&canceller, &QTimer::timeout, m_dialog.data(), [this]() {
            QProgressDialog* progress = m_dialog->progressDialog();
            if (progress && progress->labelText().startsWith("Test command 2 "))
                progress->cancel();
        });
        canceller.start(5);
        m_dialog->on_btnStart_clicked();
        canceller.stop();
        QString report = m_dialog->report();
        QVERIFY(report.contains("Test of command 1 completed."));
        QVERIFY(report.contains("Test of command 2 was interrupted."));
        QVERIFY(!report.contains("readDevice(12)"));
        auto* resume = m_dialog->findChild<QPushButton*>("btnContinue");
        QVERIFY(resume->isEnabled());

        m_dialog->on_btnContinue_clicked();
        report = m_dialog->report();
        QVERIFY(report.contains("Test of command 2 completed."));
        QVERIFY(report.contains("readDevice(12)"));
        QVERIFY(report.contains("Total test errors: 0"));
        QCOMPARE(report.count("Test of command 1 completed."), 1);
        QVERIFY(!resume->isEnabled());
    }

    void deviceMismatchAsks()
    {
        m_line.sim.setParam(0, "tag", "XX-1");
        QVERIFY(open("TCV-C", 0, ":/tests/tcv-c.tpl"));
        ModalAnswerer answerer({QMessageBox::Cancel});
        m_dialog->on_btnStart_clicked();
        QCOMPARE(answerer.seen().size(), 1);
        QVERIFY2(answerer.seen().at(0).contains("tag: the test expects TT-101, the device has XX-1"),
                 qPrintable(answerer.seen().at(0)));
        QVERIFY(m_dialog->report().contains("The test did not run"));
        // Only the reads of the check went out.
        for (const hartsim::RequestRecord& record : m_line.sim.line().requests())
            QVERIFY2(QList<int>({0, 7, 13, 15}).contains(record.command), qPrintable(QString::number(record.command)));
    }

    void templatesOfferedAndSaved()
    {
        QVERIFY(writeTest("bad.tpl", "{\"template\": \"General\",\n \"device\": }"));
        QVERIFY(writeTest("other.tpl", R"({"template": "QP-1C", "device": {"commands": [{"number": 1}]}})"));
        const QString mine = userTest("mine", "[{\"number\": 1}]");
        QVERIFY(open("General", 3, mine));
        // The built-in test and the user's good one; the broken file said in one line.
        auto* box = m_dialog->findChild<QComboBox*>("cmbTemplates");
        QCOMPARE(box->count(), 2);
        QCOMPARE(box->itemData(1, Qt::ToolTipRole).toString(), mine);
        const QString message = m_dialog->findChild<QLabel*>("lblMessage")->text();
        QVERIFY2(message.startsWith("Failed to load test ") && message.contains("bad.tpl (line 2: ") &&
                     !message.contains("other.tpl") && !message.contains('\n'),
                 qPrintable(message));

        m_dialog->on_btnStart_clicked();
        const QString reportFile = m_userDir->filePath("report.txt");
        {
            ModalAnswerer answerer({reportFile});
            m_dialog->on_btnSaveReport_clicked();
        }
        const QString saved = QString::fromUtf8(readFile(reportFile));
        QVERIFY(saved.startsWith("Device test report\nTest: mine (" + mine + ")\nDevice: General_{FT-104}"));
        QVERIFY(saved.endsWith(m_dialog->report()));
        // A copy of a built-in test is the user's to edit.
        QVERIFY(select(":/tests/general.tpl"));
        {
            ModalAnswerer answerer({m_userDir->filePath("copy.tpl")});
            m_dialog->on_btnSaveAs_clicked();
        }
        QCOMPARE(readFile(m_userDir->filePath("copy.tpl")), readFile(":/tests/general.tpl"));
    }

private:
    bool writeTest(const QString& name, const QByteArray& content)
    {
        QFile file(m_userDir->filePath(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }
    // A General test of the user's on the device at address 3, from its commands.
    QString userTest(const QString& name, const char* commands)
    {
        const QString text = R"({"name": "%1", "template": "General", "device": {"commands": %2}})";
        return writeTest(name + ".tpl", text.arg(name, QLatin1String(commands)).toUtf8())
                   ? m_userDir->filePath(name + ".tpl")
                   : QString();
    }
    static QByteArray readFile(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }
    bool select(const QString& fileName)
    {
        auto* box = m_dialog->findChild<QComboBox*>("cmbTemplates");
        box->setCurrentIndex(box->findData(fileName, Qt::ToolTipRole));
        return box->currentIndex() >= 0;
    }
    // The dialog on the device of the template at the address, identified with
    // its tag, and the test of the file chosen, its waits cut short; the
    // device, or null.
    Device* open(const QString& templateName, int address, const QString& file)
    {
        Device* device = m_line.identify(templateName, address);
        if (!device || !device->readDevice(13))
            return nullptr;
        m_dialog.reset(new TestDeviceDialog);
        m_dialog->setDevice(device);
        if (!select(file))
            return nullptr;
        // The waits are for a real device: the simulator answers at once.
        m_dialog->findChild<QSpinBox*>("spnPause")->setValue(1);
        auto* table = m_dialog->findChild<QTableWidget*>("tableWidget");
        for (int row = 0; row < table->rowCount(); ++row) {
            QVariantMap entry = table->item(row, 0)->data(Qt::UserRole).toMap();
            for (const QString key : {"delay", "read_delay"}) {
                if (entry.contains(key))
                    entry.insert(key, 1);
            }
            table->item(row, 0)->setData(Qt::UserRole, entry);
        }
        return device;
    }

    ModelLine m_line;
    QScopedPointer<QTemporaryDir> m_userDir;
    QScopedPointer<TestDeviceDialog> m_dialog;
};

QTEST_MAIN(TestTestDeviceDialog)
#include "tst_testdevicedialog.moc"
