#ifndef TESTDEVICEDIALOG_H
#define TESTDEVICEDIALOG_H

#include <QDateTime>
#include <QDialog>
#include <QList>
#include <QMap>
#include <QPointer>
#include <QVariantMap>

class Device;
class QProgressDialog;
class QTableWidgetItem;

namespace Ui {
class TestDeviceDialog;
}

// Runs a scripted test of one device. The tests are templates (*.tpl, see
// TestTemplate), built into the program under ":/tests" and kept by the user
// in the folder of the setting "tests_path"; those made for the device's
// template are offered. The chosen test's commands stand in a table, one row
// each, and the ticked rows run in order, for as many rounds as asked: reads,
// and writes of the values given for each cycle, each checked by reading the
// value back and comparing the texts. Every failure is counted by its text
// and the run goes on; the report of the run can be saved.
//
// Before the first round the values that the test expects of the device (the
// values of its "device" object, such as "polling_address" and "tag") are
// read back by the commands the test itself checks them with, and a device
// that differs is only tested when the user says so: a test that writes a
// polling address or a tag must start from, and put back, the device's own.
//
// Exchanges run on a thread of their own while the window goes on (a Cancel
// is taken at once and acts before the next exchange). A cancelled run can be
// continued from the command it stopped at, with its report and counts.
class TestDeviceDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TestDeviceDialog(QWidget* parent = nullptr);
    ~TestDeviceDialog() override;

    void setDevice(Device* device);
    // Every "*.tpl" of the folder, through appendTemplateData.
    void loadTestTemlates(const QString& path);
    // Offers the file's test when it is one for the device.
    void appendTemplateData(const QString& fileName);
    void loadTemplateInTable(const QVariantMap& test);
    void loadAvailableReadFunctions();

    // The report of the last run, and its error counts by text.
    QString report() const { return m_report; }
    QMap<QString, int> errorCounts() const { return m_testErrorsByText; }
    int testErrors() const { return m_testErrors; }
    bool isRunning() const { return m_progress != nullptr; }
    QProgressDialog* progressDialog() const { return m_progress; }

public slots:
    void reject() override;
    void onItemChanged(QTableWidgetItem* item);
    void onItemDoubleClicked(QTableWidgetItem* item);
    void updateStartButton();
    void on_btnStart_clicked();
    void on_btnContinue_clicked();
    void on_btnCheckAll_clicked();
    void on_btnUncheckAll_clicked();
    void on_spnCycles_valueChanged(int value);
    void on_cmbTemplates_currentIndexChanged(int index);
    void on_btnSaveReport_clicked();
    void on_btnOpenFrom_clicked();
    void on_btnSaveAs_clicked();
    void onShowLogMessage(int address, const QString& text);
    void onAppendDeviceError(const QString& text);

signals:
    // The test wrote to the device.
    void changed();

protected:
    void changeEvent(QEvent* event) override;

private:
    void setHeaderLabels();
    void loadAllTemplates();
    QString userTestsPath() const;
    QVariantMap currentTemplate() const;
    QString entryContext(const QVariantMap& entry) const;
    // Exchanges of one row in one round, for the progress bar.
    int rowSteps(int row) const;

    void runTest(int fromRound, int fromRow);
    void testRound();
    // The ticked rows of one round from fromRow on; the row it stopped at
    // when cancelled, else -1.
    int testDevice(int fromRow);
    // One row, all its cycles; false when cancelled.
    bool testCommand(int row);
    bool checkDeviceValues();
    bool exchange(bool write, int cmd);
    bool checkCanceled(const QString& key);
    void errorProcessing(const QString& text);
    void checkAndPrintParameters(const QVariantMap& entry);
    void stepProgress();
    void stopTest();
    void showRowErrors(int row);

    enum class Line { Plain, Head, Error, Warning };
    void addReport(const QString& text, Line kind = Line::Plain);
    void appendToView(const QString& text, const char* colour);

    Ui::TestDeviceDialog* ui;
    QPointer<Device> m_device;
    QList<QVariantMap> m_templates;
    QStringList m_loadErrors;
    QMap<int, QString> m_readFunctions;

    QString m_report;
    QDateTime m_started;
    QProgressDialog* m_progress = nullptr;
    QVariantMap m_entry; // the command running
    int m_round = 0;
    int m_resumeRound = 0;
    int m_resumeRow = -1; // the row an interrupted run goes on from
    bool m_wrote = false;
    bool m_closeRequested = false;
    QMap<QString, int> m_commandErrors;
    QMap<QString, int> m_testErrorsByText;
    QMap<int, QMap<QString, int>> m_rowErrors;
    int m_roundErrors = 0;
    int m_testErrors = 0;
};

#endif // TESTDEVICEDIALOG_H
