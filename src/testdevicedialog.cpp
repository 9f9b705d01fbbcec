#include "testdevicedialog.h"
#include "ui_testdevicedialog.h"

#include "appsettings.h"
#include "debugqt.h"
#include "device.h"
#include "port.h"
#include "testtemplate.h"
#include "utils.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSaveFile>
#include <QSignalBlocker>

#include <charconv>

namespace {

enum Column {
    ColumnCmd = 0,
    ColumnContext,
    ColumnCycles,
    ColumnValues,
    ColumnErrorCount,
    ColumnErrorText,
    ColumnCount
};

const char* const BuiltInTests = ":/tests";
const int MaxValuesWidth = 320;
const char* const ErrorColour = "#c00000";
const char* const WarningColour = "#a06000";
const char* const HeadColour = "#000080";
const char* const LogColour = "#808080";

// A value of the device as the report shows it and the check compares it:
// bytes in hexadecimal, and a float (the devices' numbers are 4-byte floats)
// in the shortest form that reads back as the same float, so that 0.3 sent
// reads back as 0.3 and not as the double nearest to the float.
QString valueText(const QVariant& value)
{
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        return byteBufferToString(bytes.constData(), int(bytes.size()));
    }
    if (value.typeId() == QMetaType::Float) {
        char text[32];
        const std::to_chars_result end = std::to_chars(text, text + sizeof text, value.toFloat());
        return QString::fromLatin1(text, int(end.ptr - text));
    }
    return value.toString();
}

} // namespace

TestDeviceDialog::TestDeviceDialog(QWidget* parent) : QDialog(parent), ui(new Ui::TestDeviceDialog)
{
    ui->setupUi(this);
    ui->tableWidget->setColumnCount(ColumnCount);
    ui->tableWidget->horizontalHeader()->setStretchLastSection(true);
    // A long cell is cut; its whole text is a tip or a double click away.
    ui->tableWidget->setWordWrap(false);
    setHeaderLabels();
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 2);
    connect(ui->tableWidget, &QTableWidget::itemChanged, this, &TestDeviceDialog::onItemChanged);
    connect(ui->tableWidget, &QTableWidget::itemDoubleClicked, this, &TestDeviceDialog::onItemDoubleClicked);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &TestDeviceDialog::reject);
    updateStartButton();
}

TestDeviceDialog::~TestDeviceDialog()
{
    delete ui;
}

void TestDeviceDialog::setHeaderLabels()
{
    ui->tableWidget->setHorizontalHeaderLabels(
        {tr("Cmd"), tr("Context"), tr("Cycles"), tr("Values"), tr("Error count"), tr("Error text")});
}

void TestDeviceDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        setHeaderLabels();
    }
    QDialog::changeEvent(event);
}

void TestDeviceDialog::setDevice(Device* device)
{
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    m_device = device;
    if (device) {
        connect(device, &Device::modbusMessage, this, &TestDeviceDialog::onShowLogMessage);
        connect(device, &Device::deviceError, this, &TestDeviceDialog::onAppendDeviceError);
        setWindowTitle(tr("Test of the device %1").arg(device->name()));
    }
    loadAvailableReadFunctions();
    loadAllTemplates();
}

// ---------------------------------------------------------------------------
// Templates

QString TestDeviceDialog::userTestsPath() const
{
    // The program's own folder is made when it is missing; a folder the user
    // chose is not.
    const QString ownFolder = AppSettings::tests_dir();
    const QString path = AppSettings::instance()->testsPath;
    return path.isEmpty() ? ownFolder : path;
}

void TestDeviceDialog::loadAllTemplates()
{
    m_templates.clear();
    m_loadErrors.clear();
    // The built-in tests first, then the user's own.
    loadTestTemlates(QString::fromLatin1(BuiltInTests));
    loadTestTemlates(userTestsPath());
    if (m_templates.isEmpty() && m_device)
        m_loadErrors << tr("There is no test for the template %1.").arg(m_device->deviceTemplateName());
    ui->lblMessage->setText(m_loadErrors.join(QLatin1Char('\n')));
    ui->lblMessage->setVisible(!m_loadErrors.isEmpty());

    const QSignalBlocker blocker(ui->cmbTemplates);
    ui->cmbTemplates->clear();
    for (const QVariantMap& test : std::as_const(m_templates)) {
        ui->cmbTemplates->addItem(test.value(QStringLiteral("name")).toString());
        ui->cmbTemplates->setItemData(ui->cmbTemplates->count() - 1, test.value(QStringLiteral("file_name")),
                                      Qt::ToolTipRole);
    }
    ui->cmbTemplates->setCurrentIndex(m_templates.isEmpty() ? -1 : 0);
    on_cmbTemplates_currentIndexChanged(ui->cmbTemplates->currentIndex());
}

void TestDeviceDialog::loadTestTemlates(const QString& path)
{
    const QDir dir(path);
    if (!dir.exists()) {
        m_loadErrors << tr("The folder of tests %1 does not exist.").arg(QDir::toNativeSeparators(path));
        return;
    }
    const QStringList files = dir.entryList({QStringLiteral("*.tpl")}, QDir::Files | QDir::Readable, QDir::Name);
    for (const QString& file : files)
        appendTemplateData(dir.filePath(file));
}

void TestDeviceDialog::appendTemplateData(const QString& fileName)
{
    QVariantMap test;
    QString error;
    if (!TestTemplate::read(fileName, &test, &error)) {
        DBG(LevelErr) << "test" << fileName << ":" << error;
        m_loadErrors << tr("Failed to load test %1").arg(QStringLiteral("%1 (%2)").arg(fileName, error));
        return;
    }
    const QString templateName = test.value(QStringLiteral("template")).toString();
    if (!m_device || templateName != m_device->deviceTemplateName()) {
        DBG(LevelInfo) << QStringLiteral("invalid template '%1'").arg(templateName) << fileName;
        return;
    }
    test.insert(QStringLiteral("file_name"), fileName);
    m_templates.append(test);
}

QVariantMap TestDeviceDialog::currentTemplate() const
{
    return m_templates.value(ui->cmbTemplates->currentIndex());
}

void TestDeviceDialog::loadAvailableReadFunctions()
{
    m_readFunctions.clear();
    if (!m_device)
        return;
    for (int cmd = 0; cmd < 256; ++cmd) {
        const QString context = m_device->readFunContext(cmd);
        if (!context.isEmpty())
            m_readFunctions.insert(cmd, context);
    }
}

QString TestDeviceDialog::entryContext(const QVariantMap& entry) const
{
    const QString description = entry.value(QStringLiteral("description")).toString();
    if (!description.isEmpty())
        return description;
    const int cmd = entry.value(QStringLiteral("number")).toInt();
    const QString context = entry.contains(QStringLiteral("parameters"))
                                ? (m_device ? m_device->writeFunContext(cmd) : QString())
                                : m_readFunctions.value(cmd);
    return context.isEmpty() ? tr("command %1").arg(cmd) : context;
}

void TestDeviceDialog::on_cmbTemplates_currentIndexChanged(int index)
{
    const QVariantMap test = m_templates.value(index);
    ui->lblDescription->setText(test.value(QStringLiteral("description")).toString());
    loadTemplateInTable(test);
    // Another test: an interrupted run of the last one cannot go on.
    m_resumeRow = -1;
    updateStartButton();
}

void TestDeviceDialog::loadTemplateInTable(const QVariantMap& test)
{
    const QSignalBlocker blocker(ui->tableWidget);
    ui->tableWidget->setRowCount(0);
    m_rowErrors.clear();
    const QVariantList commands = TestTemplate::commands(test);
    for (const QVariant& command : commands) {
        const QVariantMap entry = command.toMap();
        const int row = ui->tableWidget->rowCount();
        ui->tableWidget->insertRow(row);

        auto* cmd = new QTableWidgetItem(entry.value(QStringLiteral("number")).toString());
        cmd->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        cmd->setCheckState(Qt::Checked);
        cmd->setData(Qt::UserRole, entry);
        ui->tableWidget->setItem(row, ColumnCmd, cmd);

        QStringList values;
        const QVariantMap parameters = entry.value(QStringLiteral("parameters")).toMap();
        for (auto it = parameters.constBegin(); it != parameters.constEnd(); ++it) {
            QStringList list;
            for (const QVariant& value : it.value().toList())
                list << value.toString();
            values << QStringLiteral("%1: %2").arg(it.key(), list.join(QStringLiteral(", ")));
        }
        const QStringList cells = {entryContext(entry), entry.value(QStringLiteral("cycles")).toString(),
                                   values.join(QStringLiteral("; ")), QString(), QString()};
        for (int column = ColumnContext; column < ColumnCount; ++column) {
            auto* cell = new QTableWidgetItem(cells.at(column - ColumnContext));
            Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
            if (column == ColumnCycles)
                flags |= Qt::ItemIsEditable;
            cell->setFlags(flags);
            if (column == ColumnValues)
                cell->setToolTip(cell->text());
            ui->tableWidget->setItem(row, column, cell);
        }
    }
    // The last column takes the rest of the width; long values are cut, and
    // shown whole as a tip.
    for (int column = 0; column + 1 < ColumnCount; ++column)
        ui->tableWidget->resizeColumnToContents(column);
    ui->tableWidget->setColumnWidth(ColumnValues, qMin(ui->tableWidget->columnWidth(ColumnValues), MaxValuesWidth));
}

// ---------------------------------------------------------------------------
// The table and the buttons

void TestDeviceDialog::onItemChanged(QTableWidgetItem* item)
{
    if (item->column() == ColumnCycles) {
        QTableWidgetItem* cmd = ui->tableWidget->item(item->row(), ColumnCmd);
        QVariantMap entry = cmd->data(Qt::UserRole).toMap();
        bool ok = false;
        const int cycles = item->text().trimmed().toInt(&ok);
        const QSignalBlocker blocker(ui->tableWidget);
        if (ok && cycles >= 1 && cycles <= TestTemplate::MaxCycles) {
            entry.insert(QStringLiteral("cycles"), cycles);
            cmd->setData(Qt::UserRole, entry);
            item->setText(QString::number(cycles));
        } else {
            item->setText(entry.value(QStringLiteral("cycles")).toString());
        }
    }
    updateStartButton();
}

void TestDeviceDialog::onItemDoubleClicked(QTableWidgetItem* item)
{
    // The error texts of a row may be longer than its cell.
    if (item->column() == ColumnErrorText && !item->text().isEmpty())
        QMessageBox::information(this, windowTitle(), item->text());
}

void TestDeviceDialog::updateStartButton()
{
    bool ticked = false;
    for (int row = 0; !ticked && row < ui->tableWidget->rowCount(); ++row)
        ticked = ui->tableWidget->item(row, ColumnCmd)->checkState() == Qt::Checked;
    const bool idle = !isRunning();
    ui->btnStart->setEnabled(idle && m_device && ticked);
    ui->btnContinue->setEnabled(idle && m_device && m_resumeRow >= 0);
    ui->btnSaveReport->setEnabled(idle && !m_report.isEmpty());
    ui->btnSaveAs->setEnabled(idle && ui->cmbTemplates->currentIndex() >= 0);
    ui->btnOpenFrom->setEnabled(idle);
    ui->cmbTemplates->setEnabled(idle);
}

void TestDeviceDialog::on_btnCheckAll_clicked()
{
    for (int row = 0; row < ui->tableWidget->rowCount(); ++row)
        ui->tableWidget->item(row, ColumnCmd)->setCheckState(Qt::Checked);
}

void TestDeviceDialog::on_btnUncheckAll_clicked()
{
    for (int row = 0; row < ui->tableWidget->rowCount(); ++row)
        ui->tableWidget->item(row, ColumnCmd)->setCheckState(Qt::Unchecked);
}

void TestDeviceDialog::on_spnCycles_valueChanged(int value)
{
    // Fewer rounds than the interrupted run had reached: nothing is left to go on with.
    if (m_resumeRow >= 0 && value < m_resumeRound)
        m_resumeRow = -1;
    updateStartButton();
}

// ---------------------------------------------------------------------------
// The run

void TestDeviceDialog::on_btnStart_clicked()
{
    m_report.clear();
    ui->txtLog->clear();
    m_testErrorsByText.clear();
    m_testErrors = 0;
    m_roundErrors = 0;
    m_rowErrors.clear();
    for (int row = 0; row < ui->tableWidget->rowCount(); ++row)
        showRowErrors(row);
    m_started = QDateTime::currentDateTime();
    runTest(1, 0);
}

void TestDeviceDialog::on_btnContinue_clicked()
{
    if (m_resumeRow >= 0)
        runTest(m_resumeRound, m_resumeRow);
}

int TestDeviceDialog::rowSteps(int row) const
{
    const QTableWidgetItem* cmd = ui->tableWidget->item(row, ColumnCmd);
    if (cmd->checkState() != Qt::Checked)
        return 0;
    const QVariantMap entry = cmd->data(Qt::UserRole).toMap();
    int perCycle = 1;
    if (entry.contains(QStringLiteral("parameters")) && entry.contains(QStringLiteral("read_cmd")))
        perCycle = 2;
    return perCycle * entry.value(QStringLiteral("cycles")).toInt();
}

void TestDeviceDialog::runTest(int fromRound, int fromRow)
{
    if (!m_device || isRunning())
        return;
    const int rounds = ui->spnCycles->value();
    int perRound = 0;
    int done = 0;
    for (int row = 0; row < ui->tableWidget->rowCount(); ++row) {
        perRound += rowSteps(row);
        if (row < fromRow)
            done += rowSteps(row);
    }

    QProgressDialog progress(this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setCancelButtonText(tr("Cancel"));
    progress.setMinimum(0);
    progress.setMaximum(qMax(1, perRound * rounds));
    progress.setMinimumDuration(0);
    progress.setAutoClose(false);
    progress.setAutoReset(false);
    progress.setWindowTitle(tr("Test round %1...").arg(fromRound));
    progress.setValue((fromRound - 1) * perRound + done);
    m_progress = &progress;
    m_wrote = false;
    updateStartButton();

    bool completed = true;
    if (fromRound == 1 && fromRow == 0 && !checkDeviceValues()) {
        addReport(tr("The test did not run: the device is not the one it was written for."), Line::Warning);
        completed = false;
        m_resumeRow = -1;
    }
    for (int round = fromRound; completed && round <= rounds; ++round) {
        m_round = round;
        if (round != fromRound || fromRow == 0)
            testRound();
        else
            addReport(tr("###### Test round %1 goes on ######\n").arg(round), Line::Head);
        const int stoppedAt = testDevice(round == fromRound ? fromRow : 0);
        if (stoppedAt >= 0) {
            m_resumeRound = round;
            m_resumeRow = stoppedAt;
            completed = false;
            addReport(tr("The test was interrupted; Continue goes on from command %1.")
                          .arg(ui->tableWidget->item(stoppedAt, ColumnCmd)->text()),
                      Line::Warning);
            break;
        }
        addReport(tr("Total round errors: %1\n").arg(m_roundErrors), Line::Head);
    }
    if (completed) {
        m_resumeRow = -1;
        addReport(tr("Total test errors: %1\n").arg(m_testErrors), Line::Head);
        if (m_testErrors == 0)
            addReport(tr("No errors."));
        for (auto it = m_testErrorsByText.constBegin(); it != m_testErrorsByText.constEnd(); ++it)
            addReport(tr("%1 errors: %2").arg(it.key()).arg(it.value()), Line::Error);
    }
    progress.setValue(progress.maximum());
    m_progress = nullptr;
    stopTest();
}

void TestDeviceDialog::stopTest()
{
    updateStartButton();
    if (m_wrote)
        emit changed();
    if (m_closeRequested)
        QDialog::reject();
}

void TestDeviceDialog::testRound()
{
    m_roundErrors = 0;
    m_progress->setWindowTitle(tr("Test round %1...").arg(m_round));
    addReport(tr("###### Test round %1 ######\n").arg(m_round), Line::Head);
}

int TestDeviceDialog::testDevice(int fromRow)
{
    for (int row = fromRow; row < ui->tableWidget->rowCount(); ++row) {
        if (m_progress->wasCanceled())
            return row;
        if (ui->tableWidget->item(row, ColumnCmd)->checkState() != Qt::Checked)
            continue;
        if (!testCommand(row))
            return row;
    }
    return -1;
}

bool TestDeviceDialog::testCommand(int row)
{
    QTableWidgetItem* head = ui->tableWidget->item(row, ColumnCmd);
    m_entry = head->data(Qt::UserRole).toMap();
    const int cmd = m_entry.value(QStringLiteral("number")).toInt();
    const int cycles = m_entry.value(QStringLiteral("cycles")).toInt();
    const QString context = entryContext(m_entry);
    ui->tableWidget->scrollToItem(head);
    ui->tableWidget->selectRow(row);
    const QString title = tr("Test command %1 - %2 (%3 cycles)...").arg(cmd).arg(context).arg(cycles);
    m_progress->setLabelText(title);
    addReport(title, Line::Head);
    m_commandErrors.clear();

    bool interrupted = false;
    const QVariantMap parameters = m_entry.value(QStringLiteral("parameters")).toMap();
    for (int cycle = 1; cycle <= cycles && !interrupted; ++cycle) {
        if (m_progress->wasCanceled()) {
            interrupted = true;
            break;
        }
        if (parameters.isEmpty()) {
            addReport(tr("readDevice(%1) %2").arg(cmd).arg(context));
            if (!exchange(false, cmd))
                errorProcessing(m_device->errorText());
            checkAndPrintParameters(m_entry);
            stepProgress();
            interrupted = checkCanceled(QStringLiteral("delay"));
            continue;
        }

        addReport(tr("--- cycle: %1 ---").arg(cycle));
        QStringList values;
        for (auto it = parameters.constBegin(); it != parameters.constEnd(); ++it) {
            const QVariant value = TestTemplate::valueForCycle(it.value().toList(), cycle);
            m_device->setDeviceInfo(it.key(), value);
            values << QStringLiteral("%1=%2").arg(it.key(), value.toString());
        }
        const QString valuesText = values.join(QStringLiteral(", "));
        addReport(tr("values - [%1]").arg(valuesText));
        m_progress->setLabelText(tr("Test command %1 - %2...\n%3").arg(cmd).arg(context, valuesText));
        addReport(tr("writeDevice(%1)").arg(cmd));
        if (exchange(true, cmd)) {
            m_wrote = true;
        } else {
            addReport(tr("when writing a values [%1], an error occurred:").arg(valuesText), Line::Error);
            errorProcessing(m_device->errorText());
        }
        stepProgress();
        interrupted = checkCanceled(QStringLiteral("delay"));
        if (interrupted)
            break;
        if (!m_entry.contains(QStringLiteral("read_cmd"))) {
            checkAndPrintParameters(m_entry);
            continue;
        }

        const int readCmd = m_entry.value(QStringLiteral("read_cmd")).toInt();
        addReport(tr("*** check -> readDevice(%1)").arg(readCmd));
        m_progress->setLabelText(
            tr("Test command %1 - %2...\ncheck result by command %3").arg(cmd).arg(context).arg(readCmd));
        const bool read = exchange(false, readCmd);
        if (!read)
            errorProcessing(m_device->errorText());
        stepProgress();
        interrupted = checkCanceled(QStringLiteral("read_delay"));
        checkAndPrintParameters(m_entry);
        // A failed read leaves the sent values in the map: nothing to compare.
        if (!read)
            continue;
        addReport(tr("Checking cmd %1: %2").arg(readCmd).arg(parameters.keys().join(QStringLiteral(", "))));
        for (auto it = parameters.constBegin(); it != parameters.constEnd(); ++it) {
            const QString sent = TestTemplate::valueForCycle(it.value().toList(), cycle).toString();
            const QString received = valueText(m_device->deviceInfo().value(it.key()));
            if (sent != received)
                errorProcessing(tr("%1 validation error: send:%2 recv:%3").arg(it.key(), sent, received));
        }
    }

    if (m_entry.value(QStringLiteral("close_port")).toBool() && m_device->port()) {
        m_device->port()->closeHart();
        addReport(tr("The port %1 is closed.").arg(m_device->port()->serialName()));
    }

    addReport(QStringLiteral("\n === ") +
                  tr("Test of command %1 %2.").arg(cmd).arg(interrupted ? tr("was interrupted") : tr("completed")) +
                  QStringLiteral(" ===\n"),
              Line::Head);
    int total = 0;
    for (int count : std::as_const(m_commandErrors))
        total += count;
    if (total == 0) {
        addReport(tr("No errors."));
    } else {
        addReport(tr("total command %1 errors: %2\n").arg(cmd).arg(total), Line::Error);
        for (auto it = m_commandErrors.constBegin(); it != m_commandErrors.constEnd(); ++it)
            addReport(tr("%1 errors: %2").arg(it.key()).arg(it.value()), Line::Error);
    }
    addReport(QStringLiteral("------------------------------"));
    QMap<QString, int>& rowErrors = m_rowErrors[row];
    for (auto it = m_commandErrors.constBegin(); it != m_commandErrors.constEnd(); ++it)
        rowErrors[it.key()] += it.value();
    showRowErrors(row);
    return !interrupted;
}

bool TestDeviceDialog::checkDeviceValues()
{
    const QVariantMap test = currentTemplate();
    const QVariantMap expected = TestTemplate::expectedValues(test);
    if (expected.isEmpty())
        return true;
    // Each value is read back by the command this test checks it with.
    QMap<QString, int> readBy;
    const QVariantList commands = TestTemplate::commands(test);
    for (const QVariant& command : commands) {
        const QVariantMap entry = command.toMap();
        if (!entry.contains(QStringLiteral("read_cmd")))
            continue;
        const QStringList keys = entry.value(QStringLiteral("parameters")).toMap().keys();
        for (const QString& key : keys) {
            if (!readBy.contains(key))
                readBy.insert(key, entry.value(QStringLiteral("read_cmd")).toInt());
        }
    }
    QList<int> reads;
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        if (readBy.contains(it.key()) && !reads.contains(readBy.value(it.key())))
            reads << readBy.value(it.key());
    }

    addReport(tr("Checking the device against the test..."), Line::Head);
    for (int cmd : std::as_const(reads)) {
        m_progress->setLabelText(tr("Checking the device against the test..."));
        addReport(tr("readDevice(%1) %2").arg(cmd).arg(m_readFunctions.value(cmd)));
        if (!exchange(false, cmd))
            addReport(m_device->errorText(), Line::Error);
        if (m_progress->wasCanceled())
            return false;
    }
    QStringList differences;
    for (auto it = expected.constBegin(); it != expected.constEnd(); ++it) {
        const QString actual = it.key() == QLatin1String("polling_address")
                                   ? QString::number(m_device->address())
                                   : valueText(m_device->deviceInfo().value(it.key()));
        if (actual != it.value().toString())
            differences << tr("%1: the test expects %2, the device has %3")
                               .arg(it.key(), it.value().toString(), actual.isEmpty() ? tr("nothing known") : actual);
    }
    if (differences.isEmpty()) {
        addReport(tr("The device is the one the test was written for."));
        return true;
    }
    for (const QString& difference : std::as_const(differences))
        addReport(difference, Line::Warning);
    return QMessageBox::warning(this, windowTitle(),
                                tr("The device does not match the test:\n%1\n\nRun the test anyway?")
                                    .arg(differences.join(QLatin1Char('\n'))),
                                QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel) == QMessageBox::Yes;
}

bool TestDeviceDialog::exchange(bool write, int cmd)
{
    Device* device = m_device;
    bool ok = false;
    runWhileEventLoopTurns([&]() { ok = write ? device->writeDevice(cmd) : device->readDevice(cmd); });
    return ok;
}

bool TestDeviceDialog::checkCanceled(const QString& key)
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
    if (m_progress->wasCanceled())
        return true;
    if (key.isEmpty())
        return false;
    int ms = m_entry.value(key).toInt();
    if (ms == 0)
        ms = ui->spnPause->value();
    // The wait lets the window live, and a Cancel ends it.
    QProgressDialog* progress = m_progress;
    waitWhileEventLoopTurns(ms, [progress]() { return progress->wasCanceled(); });
    return m_progress->wasCanceled();
}

void TestDeviceDialog::stepProgress()
{
    m_progress->setValue(qMin(m_progress->value() + 1, m_progress->maximum()));
}

void TestDeviceDialog::errorProcessing(const QString& text)
{
    const QString error = text.trimmed().isEmpty() ? tr("unknown error") : text.trimmed();
    // Validation errors are counted together, whatever the value.
    const bool validation = error.contains(QLatin1String("validation error")) || error.contains(tr("validation error"));
    const QString key = validation ? tr("validation errors") : error;
    ++m_commandErrors[key];
    ++m_testErrorsByText[key];
    ++m_roundErrors;
    ++m_testErrors;
    addReport(error, Line::Error);
}

void TestDeviceDialog::checkAndPrintParameters(const QVariantMap& entry)
{
    const QStringList names = entry.value(QStringLiteral("print")).toStringList();
    if (names.isEmpty())
        return;
    QStringList values;
    for (const QString& name : names)
        values << QStringLiteral("%1 = %2").arg(name, valueText(m_device->deviceInfo().value(name)));
    addReport(values.join(QStringLiteral("; ")));
}

void TestDeviceDialog::showRowErrors(int row)
{
    const QMap<QString, int> errors = m_rowErrors.value(row);
    int total = 0;
    QStringList texts;
    for (auto it = errors.constBegin(); it != errors.constEnd(); ++it) {
        total += it.value();
        texts << (it.value() > 1 ? QStringLiteral("%1 (x%2)").arg(it.key()).arg(it.value()) : it.key());
    }
    const QSignalBlocker blocker(ui->tableWidget);
    ui->tableWidget->item(row, ColumnErrorCount)->setText(errors.isEmpty() ? QString() : QString::number(total));
    ui->tableWidget->item(row, ColumnErrorText)->setText(texts.join(QStringLiteral("; ")));
    const QBrush colour = total > 0 ? QBrush(QColor(QLatin1String(ErrorColour))) : QBrush();
    ui->tableWidget->item(row, ColumnErrorCount)->setForeground(colour);
    ui->tableWidget->item(row, ColumnErrorText)->setForeground(colour);
}

// ---------------------------------------------------------------------------
// The report and the log view

void TestDeviceDialog::addReport(const QString& text, Line kind)
{
    m_report += text;
    if (!text.endsWith(QLatin1Char('\n')))
        m_report += QLatin1Char('\n');
    const char* colour = kind == Line::Error     ? ErrorColour
                         : kind == Line::Warning ? WarningColour
                         : kind == Line::Head    ? HeadColour
                                                 : nullptr;
    appendToView(text, colour);
}

void TestDeviceDialog::appendToView(const QString& text, const char* colour)
{
    const QString html = text.trimmed().toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    ui->txtLog->append(colour ? QStringLiteral("<span style=\"color: %1;\">%2</span>").arg(QLatin1String(colour), html)
                              : html);
}

void TestDeviceDialog::onShowLogMessage(int address, const QString& text)
{
    Q_UNUSED(address)
    appendToView(text, LogColour);
}

void TestDeviceDialog::onAppendDeviceError(const QString& text)
{
    ui->txtLog->append(QStringLiteral("<p style=\"color: red;\">%1</p>").arg(text.toHtmlEscaped()));
}

void TestDeviceDialog::on_btnSaveReport_clicked()
{
    const QVariantMap test = currentTemplate();
    const QString base = QFileInfo(test.value(QStringLiteral("file_name")).toString()).completeBaseName();
    const QString proposal = QDir(AppSettings::tests_dir())
                                 .filePath(QStringLiteral("%1_%2.txt")
                                               .arg(base.isEmpty() ? QStringLiteral("test") : base,
                                                    m_started.toString(QStringLiteral("yyyyMMdd_HHmmss"))));
    const QString fileName =
        QFileDialog::getSaveFileName(this, tr("Save Report"), proposal, tr("Text files (*.txt);;All files (*)"));
    if (fileName.isEmpty())
        return;

    QString text = tr("Device test report") + QLatin1Char('\n');
    text +=
        tr("Test: %1 (%2)")
            .arg(test.value(QStringLiteral("name")).toString(), test.value(QStringLiteral("file_name")).toString()) +
        QLatin1Char('\n');
    if (m_device) {
        text += tr("Device: %1, template %2, polling address %3, long address %4, line %5")
                    .arg(m_device->name(), m_device->deviceTemplateName())
                    .arg(m_device->address())
                    .arg(QString::fromLatin1(m_device->hartAddress().toHex(' ').toUpper()),
                         m_device->port() ? m_device->port()->serialName() : QString()) +
                QLatin1Char('\n');
    }
    text += tr("Started: %1").arg(m_started.toString(Qt::ISODate)) + QStringLiteral("\n\n") + m_report;

    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit()) {
        DBG(LevelErr) << "cannot write the report" << fileName << file.errorString();
        QMessageBox::critical(this, windowTitle(),
                              tr("The report could not be written to %1:\n%2").arg(fileName, file.errorString()));
    }
}

void TestDeviceDialog::on_btnOpenFrom_clicked()
{
    const QString path = QFileDialog::getExistingDirectory(this, tr("Path for tests"), userTestsPath());
    if (path.isEmpty())
        return;
    AppSettings::instance()->testsPath = path;
    loadAllTemplates();
}

void TestDeviceDialog::on_btnSaveAs_clicked()
{
    const QString source = currentTemplate().value(QStringLiteral("file_name")).toString();
    if (source.isEmpty() || !QFileInfo::exists(source)) {
        QMessageBox::warning(this, windowTitle(), tr("The test template file does not exist!"));
        return;
    }
    const QString target = QFileDialog::getSaveFileName(this, tr("Save As..."),
                                                        QDir(userTestsPath()).filePath(QFileInfo(source).fileName()),
                                                        tr("Reports (*.tpl);;All files (*.*)"));
    if (target.isEmpty() || QFileInfo(target).absoluteFilePath() == QFileInfo(source).absoluteFilePath())
        return;
    if (QFileInfo::exists(target)) {
        QFile old(target);
        if (!old.remove()) {
            DBG(LevelErr) << QStringLiteral("can't remove file '%1', '%2'").arg(target, old.errorString());
            QMessageBox::critical(this, windowTitle(), tr("Error copying the test template file"));
            return;
        }
    }
    QFile file(source);
    if (!file.copy(target)) {
        DBG(LevelErr) << QStringLiteral("can't copy file '%1' to '%2', '%3'").arg(source, target, file.errorString());
        QMessageBox::critical(this, windowTitle(), tr("Error copying the test template file"));
        return;
    }
    // A copy of a built-in test is read-only, as the program's resources are.
    QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::WriteOwner);
}

void TestDeviceDialog::reject()
{
    if (isRunning()) {
        // The run stops before its next exchange and the dialog closes then.
        m_closeRequested = true;
        m_progress->cancel();
        return;
    }
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    QDialog::reject();
}
