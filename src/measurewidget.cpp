#include "measurewidget.h"
#include "ui_measurewidget.h"

#include "appsettings.h"
#include "debugqt.h"
#include "device.h"
#include "plotter.h"
#include "port.h"
#include "pvwidget.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSaveFile>
#include <QScrollBar>

#include <cmath>

namespace {

// The units of the polling period and their factors in milliseconds.
const struct
{
    const char* name;
    int factor;
} periodUnits[] = {{QT_TRANSLATE_NOOP("MeasureWidget", "ms"), 1},
                   {QT_TRANSLATE_NOOP("MeasureWidget", "s"), 1000},
                   {QT_TRANSLATE_NOOP("MeasureWidget", "min"), 60000},
                   {QT_TRANSLATE_NOOP("MeasureWidget", "h"), 3600000}};

const int MaxPlotPoints = 300000;

// The plot's curves, by the variables they show.
const ReadingsModel::Variable curveVariables[] = {ReadingsModel::PV, ReadingsModel::SV, ReadingsModel::TV,
                                                  ReadingsModel::QV};

// The device's stored values of the tab.
const char* const keyDefaultFileName = "default_file_name";
const char* const keyWriteLineCount = "write_line_count";
const char* const keyArchivePath = "archive_path_name";
const char* const keyArchiveFile = "archive_file_name";
const char* const keyAutoSave = "auto_save_file";

// A value as the archive writes it: two decimals.
float rounded(const QVariant& value)
{
    return QString::number(double(value.toFloat()), 'f', 2).toFloat();
}

} // namespace

MeasureWidget::MeasureWidget(QWidget* parent) : QWidget(parent), ui(new Ui::MeasureWidget)
{
    ui->setupUi(this);
    m_model.setLimit(m_rowLimit);
    ui->tblReadings->setModel(&m_model);
    // Rows of one height and one line: a repaint lays out the visible rows only.
    ui->tblReadings->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    ui->tblReadings->verticalHeader()->setDefaultSectionSize(ui->tblReadings->fontMetrics().height() + 4);
    ui->tblReadings->setWordWrap(false);
    ui->plotter->setMaxPoints(MaxPlotPoints);
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 2);
    fillTimes();
    ui->cmbTimes->setCurrentIndex(1);

    connect(&m_periodThread, &PeriodThread::responsePV, this, &MeasureWidget::showPeriodResponsePV);
    connect(&m_fileThread, &FileThread::error, this, &MeasureWidget::onFileThreadError);
    connect(&m_fileThread, &FileThread::writeLines, this, &MeasureWidget::onFileThreadWriteLines);
    connect(&m_fileThread, &FileThread::changeFile, this, &MeasureWidget::onChangeThreadFile);
    connect(ui->plotter, &Plotter::minXChanged, this, &MeasureWidget::onMinXChanged);
    connect(ui->plotter, &Plotter::zoomChanged, this, &MeasureWidget::onZoomChanged);
    for (QCheckBox* box : {ui->chkPV, ui->chkSV, ui->chkTV, ui->chkQV})
        connect(box, &QCheckBox::toggled, this, &MeasureWidget::drawPlot);
    initWidget();
    onUpdateButtons(false);
}

MeasureWidget::~MeasureWidget()
{
    stopPeriodThread();
    delete ui;
}

void MeasureWidget::fillTimes()
{
    const int index = ui->cmbTimes->currentIndex();
    const QSignalBlocker blocker(ui->cmbTimes);
    ui->cmbTimes->clear();
    for (const auto& unit : periodUnits)
        ui->cmbTimes->addItem(tr(unit.name), unit.factor);
    ui->cmbTimes->setCurrentIndex(index);
}

void MeasureWidget::initWidget()
{
    if (m_pvUnit.isEmpty() && m_device)
        m_pvUnit = m_device->getPVUnitCodeText();
    m_model.setColumns(m_pvUnit, shownVariables());
    showVariables();
}

QList<ReadingsModel::Variable> MeasureWidget::shownVariables() const
{
    // Known from the device until a reading says what it carries.
    if (m_shownFromReading || !m_device)
        return m_shown;
    QList<ReadingsModel::Variable> shown;
    for (ReadingsModel::Variable variable : {ReadingsModel::SV, ReadingsModel::TV, ReadingsModel::QV}) {
        const QString key = QLatin1String(ReadingsModel::variableKey(variable)) + QStringLiteral("_unit_code");
        if (m_device->hasDeviceInfoParam(key) && m_device->getDeviceInfoByte(key) != 250)
            shown << variable;
    }
    return shown;
}

void MeasureWidget::takeColumnsFrom(const QVariantMap& reading)
{
    QList<ReadingsModel::Variable> shown;
    for (ReadingsModel::Variable variable : {ReadingsModel::SV, ReadingsModel::TV, ReadingsModel::QV}) {
        if (reading.contains(QLatin1String(ReadingsModel::variableKey(variable))))
            shown << variable;
    }
    const QString unit = reading.value(QStringLiteral("PVUnitCodeText")).toString();
    if (m_shownFromReading && shown == m_shown && unit == m_pvUnit)
        return;
    m_shownFromReading = true;
    m_shown = shown;
    m_pvUnit = unit;
    m_model.setColumns(unit, m_shown);
    showVariables();
    ui->tblReadings->resizeColumnsToContents();
}

void MeasureWidget::showVariables()
{
    const QList<ReadingsModel::Variable> shown = shownVariables();
    const struct
    {
        ReadingsModel::Variable variable;
        QWidget* check;
        QWidget* display;
        QWidget* unit;
    } rows[] = {{ReadingsModel::SV, ui->chkSV, ui->lcdSV, ui->lbSVUnit},
                {ReadingsModel::TV, ui->chkTV, ui->lcdTV, ui->lbTVUnit},
                {ReadingsModel::QV, ui->chkQV, ui->lcdQV, ui->lbQVUnit}};
    for (const auto& row : rows) {
        for (QWidget* widget : {row.check, row.display, row.unit})
            widget->setVisible(shown.contains(row.variable));
    }
}

int MeasureWidget::periodMs() const
{
    return ui->spnPeriod->value() * ui->cmbTimes->currentData().toInt();
}

void MeasureWidget::onUpdateButtons(bool on)
{
    // A poll under way keeps its own button.
    ui->btnStartStop->setEnabled(on || m_polling);
}

void MeasureWidget::onDeviceChanged(Device* device)
{
    stopPeriodThread();
    setPolling(false);
    m_device = device;
    m_shown.clear();
    m_shownFromReading = false;
    m_pvUnit.clear();
    if (!device)
        return;
    const QString archives = AppSettings::archives_dir();
    auto stored = [device](const char* key, const QVariant& fallback) {
        const QVariant value = device->getDeviceInfo(QLatin1String(key));
        return value.isValid() && !value.toString().isEmpty() ? value : fallback;
    };
    ui->spnLineCount->setValue(stored(keyWriteLineCount, 10).toInt());
    ui->chkPeriod->setChecked(stored(keyAutoSave, false).toBool());
    device->setDeviceInfo(QLatin1String(keyArchivePath), stored(keyArchivePath, archives));
    device->setDeviceInfo(QLatin1String(keyDefaultFileName), stored(keyDefaultFileName, device->name()));
    initWidget();
}

void MeasureWidget::storeSettings()
{
    if (!m_device)
        return;
    m_device->setDeviceInfo(QLatin1String(keyWriteLineCount), ui->spnLineCount->value());
    m_device->setDeviceInfo(QLatin1String(keyAutoSave), ui->chkPeriod->isChecked());
}

void MeasureWidget::on_cmbTimes_currentIndexChanged(int index)
{
    Q_UNUSED(index)
    // A running poll takes the new period at once.
    if (m_polling && m_device && periodMs() > 0)
        m_periodThread.setDevice(m_device, periodMs());
}

void MeasureWidget::on_spnPeriod_valueChanged(int arg)
{
    on_cmbTimes_currentIndexChanged(arg);
}

void MeasureWidget::on_chkPeriod_stateChanged(int state)
{
    ui->spnLineCount->setEnabled(state == Qt::Checked && !m_polling);
    storeSettings();
}

void MeasureWidget::setPolling(bool on)
{
    m_polling = on;
    ui->btnStartStop->setChecked(on);
    ui->btnStartStop->setText(on ? tr("Stop") : tr("Start"));
    for (QWidget* widget : {static_cast<QWidget*>(ui->spnPeriod), static_cast<QWidget*>(ui->cmbTimes),
                            static_cast<QWidget*>(ui->chkPeriod)})
        widget->setEnabled(!on);
    ui->spnLineCount->setEnabled(!on && ui->chkPeriod->isChecked());
}

void MeasureWidget::on_btnStartStop_clicked()
{
    if (!ui->btnStartStop->isChecked() || periodMs() == 0 || !m_device) {
        const bool wasPolling = m_polling;
        stopPeriodThread();
        setPolling(false);
        if (wasPolling)
            emit startPeriod(true);
        return;
    }
    storeSettings();
    m_archiving = false;
    if (ui->chkPeriod->isChecked()) {
        const QDateTime now = QDateTime::currentDateTime();
        QVariantMap parameters;
        parameters.insert(QStringLiteral("name"), m_device->getDeviceInfo(QLatin1String(keyDefaultFileName)));
        parameters.insert(QStringLiteral("date"), now);
        parameters.insert(QStringLiteral("write_line_count"), ui->spnLineCount->value());
        parameters.insert(QStringLiteral("archive_path"), m_device->getDeviceInfo(QLatin1String(keyArchivePath)));
        parameters.insert(QStringLiteral("archive_type"), m_device->deviceTemplateName());
        parameters.insert(QStringLiteral("file_name"), QString());
        parameters.insert(QStringLiteral("full_name"), m_device->fullName());
        parameters.insert(QStringLiteral("descriptor"), m_device->getDeviceInfoString(QStringLiteral("descriptor")));
        if (!m_fileThread.setParameters(parameters)) {
            QMessageBox::critical(this, tr("Archive"), m_fileThread.errorString());
            setPolling(false);
            return;
        }
        m_archiving = true;
        m_device->setDeviceInfo(QLatin1String(keyArchiveFile), m_fileThread.fileName());
        m_device->setDeviceTagState(m_device->deviceTagState() | Device::TagStateArchived);
        showArchiveFile(0);
    }
    m_periodThread.setDevice(m_device, periodMs());
    setPolling(true);
    emit startPeriod(false);
    initWidget();
}

void MeasureWidget::stopPeriodThread()
{
    if (!m_polling)
        return;
    m_periodThread.stopThread();
    // The readings the poll sent before it stopped are shown, and archived,
    // before the archive closes.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    if (m_archiving) {
        m_fileThread.flushData();
        m_archiving = false;
    }
    if (m_device) {
        m_device->setDeviceTagState(m_device->deviceTagState() & ~(Device::TagStatePolled | Device::TagStateArchived));
        if (Port* port = m_device->port())
            port->closeHart();
    }
}

void MeasureWidget::onCloseApplication()
{
    stopPeriodThread();
    setPolling(false);
}

void MeasureWidget::showPeriodResponsePV(const QVariantMap& values)
{
    QVariantMap reading = values;
    const bool failed = values.contains(QStringLiteral("errorText"));
    // Table, plot and file show the same rounded numbers.
    if (!failed) {
        for (int i = 0; i < ReadingsModel::VariableCount; ++i) {
            const QString key = QLatin1String(ReadingsModel::variableKey(ReadingsModel::Variable(i)));
            if (reading.contains(key))
                reading.insert(key, rounded(reading.value(key)));
        }
    }
    if (!failed)
        takeColumnsFrom(reading);
    m_model.append(reading);
    if (ui->chkScroll->isChecked())
        ui->tblReadings->scrollToBottom();
    if (m_model.rowCount() == 1)
        ui->tblReadings->resizeColumnsToContents();

    const QDateTime time = values.value(QStringLiteral("DateTime")).toDateTime();
    ui->lbTime->setText(time.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")));
    if (!failed) {
        const struct
        {
            const char* key;
            const char* unitKey;
            QLCDNumber* display;
            QLabel* unit;
        } shown[] = {{"PV", "PVUnitCodeText", ui->lcdPV, ui->lbPVUnit},
                     {"SV", "SVUnitCodeText", ui->lcdSV, ui->lbSVUnit},
                     {"TV", "TVUnitCodeText", ui->lcdTV, ui->lbTVUnit},
                     {"QV", "QVUnitCodeText", ui->lcdQV, ui->lbQVUnit}};
        for (const auto& row : shown) {
            if (!reading.contains(QLatin1String(row.key)))
                continue;
            PVWidget::showValue(row.display, reading.value(QLatin1String(row.key)).toFloat());
            row.unit->setText(reading.value(QLatin1String(row.unitKey)).toString());
        }
        PVWidget::showValue(ui->lcdCurrent, reading.value(QStringLiteral("output_current")).toFloat());
        const unsigned int seconds = unsigned(time.toSecsSinceEpoch());
        const QCheckBox* checks[] = {ui->chkPV, ui->chkSV, ui->chkTV, ui->chkQV};
        for (int curve = 0; curve < 4; ++curve) {
            const QString key = QLatin1String(ReadingsModel::variableKey(curveVariables[curve]));
            const double value = reading.value(key).toDouble();
            if (checks[curve]->isChecked() && reading.contains(key) && std::isfinite(value))
                plotValue(curve, seconds, value);
        }
    }
    if (m_archiving)
        m_fileThread.appendHARTDataToWrite(reading);
    if (m_device) {
        for (const char* key : {"PVUnitCodeText", "SVUnitCodeText", "TVUnitCodeText", "QVUnitCodeText"}) {
            if (reading.contains(QLatin1String(key)))
                m_device->setDeviceInfo(QLatin1String(key), reading.value(QLatin1String(key)));
        }
    }
    emit responsePV(reading);
}

void MeasureWidget::plotValue(int curve, unsigned int time, double value)
{
    Plotter* plot = ui->plotter;
    if (!m_hasPlotPoint) {
        m_hasPlotPoint = true;
        PlotSettings settings;
        settings.minX = time;
        settings.maxX = time + ui->spnSpan->value() * 60.0;
        settings.minY = value - std::max(1.0, std::fabs(value) * 0.1);
        settings.maxY = value + std::max(1.0, std::fabs(value) * 0.1);
        settings.adjust();
        plot->setPlotSettings(settings);
    }
    if (plot->curveData(curve).isEmpty())
        plot->setCurveName(curve, QLatin1String(ReadingsModel::variableKey(curveVariables[curve])));
    plot->addpendCurveData(curve, QPointF(time, value));
    PlotSettings view = plot->getCurZoomPlotSettings();
    if (ui->chkScroll->isChecked() && time > view.maxX) {
        const double span = view.maxX - view.minX;
        view.maxX = time + span / view.numXTicks;
        view.minX = view.maxX - span;
        view.adjustXAxis();
        DBG(LevelInfo) << "!!! update plot settings";
        plot->setCurZoomPlotSettings(view);
    }
    updateViewFields();
}

void MeasureWidget::drawPlot()
{
    ui->plotter->clearCurves();
    const QCheckBox* checks[] = {ui->chkPV, ui->chkSV, ui->chkTV, ui->chkQV};
    for (int curve = 0; curve < 4; ++curve) {
        if (!checks[curve]->isChecked())
            continue;
        QVector<QPointF> points;
        points.reserve(m_model.rowCount());
        for (int row = 0; row < m_model.rowCount(); ++row) {
            const ReadingsModel::Reading& r = m_model.reading(row);
            const float value = r.values[curveVariables[curve]];
            if (!r.failed && std::isfinite(value))
                points.append(QPointF(double(r.time / 1000), double(value)));
        }
        if (!points.isEmpty()) {
            ui->plotter->setCurveName(curve, QLatin1String(ReadingsModel::variableKey(curveVariables[curve])));
            ui->plotter->setCurveData(curve, points);
        }
    }
}

void MeasureWidget::updateViewFields()
{
    const PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    const QSignalBlocker b1(ui->dspnViewMinY), b2(ui->dspnViewMaxY), b3(ui->dtViewMinX), b4(ui->dtViewMaxX);
    ui->dspnViewMinY->setValue(view.minY);
    ui->dspnViewMaxY->setValue(view.maxY);
    ui->dtViewMinX->setDateTime(QDateTime::fromSecsSinceEpoch(qint64(view.minX)));
    ui->dtViewMaxX->setDateTime(QDateTime::fromSecsSinceEpoch(qint64(view.maxX)));
}

void MeasureWidget::onMinXChanged(double minX)
{
    Q_UNUSED(minX)
    updateViewFields();
}

void MeasureWidget::onZoomChanged()
{
    updateViewFields();
}

void MeasureWidget::on_dspnViewMinY_editingFinished()
{
    const PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    const double value = ui->dspnViewMinY->value();
    if (value > ui->dspnViewMaxY->value()) {
        QMessageBox::warning(
            this, tr("Min Y value"),
            tr("The entered value Min Y (%1) is greater than Max Y (%2)!").arg(value).arg(ui->dspnViewMaxY->value()));
        ui->dspnViewMinY->setValue(view.minY);
    }
}

void MeasureWidget::on_dspnViewMaxY_editingFinished()
{
    const PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    const double value = ui->dspnViewMaxY->value();
    if (value < ui->dspnViewMinY->value()) {
        QMessageBox::warning(
            this, tr("Max Y value"),
            tr("The entered value Max Y (%1) less than Min Y (%2)!").arg(value).arg(ui->dspnViewMinY->value()));
        ui->dspnViewMaxY->setValue(view.maxY);
    }
}

void MeasureWidget::on_dtViewMinX_editingFinished()
{
    const PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    const QDateTime value = ui->dtViewMinX->dateTime();
    if (value > ui->dtViewMaxX->dateTime()) {
        const QString format = ui->dtViewMinX->displayFormat();
        QMessageBox::warning(this, tr("Min X value"),
                             tr("The entered value Min X (%1) is greater than Max X (%2)!")
                                 .arg(value.toString(format), ui->dtViewMaxX->dateTime().toString(format)));
        ui->dtViewMinX->setDateTime(QDateTime::fromSecsSinceEpoch(qint64(view.minX)));
    }
}

void MeasureWidget::on_dtViewMaxX_editingFinished()
{
    const PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    const QDateTime value = ui->dtViewMaxX->dateTime();
    if (value < ui->dtViewMinX->dateTime()) {
        const QString format = ui->dtViewMaxX->displayFormat();
        QMessageBox::warning(this, tr("Max X value"),
                             tr("The entered value Max X (%1) less than Min X (%2)!")
                                 .arg(value.toString(format), ui->dtViewMinX->dateTime().toString(format)));
        ui->dtViewMaxX->setDateTime(QDateTime::fromSecsSinceEpoch(qint64(view.maxX)));
    }
}

void MeasureWidget::on_btnSetRange_clicked()
{
    PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    view.minY = ui->dspnViewMinY->value();
    view.maxY = ui->dspnViewMaxY->value();
    view.minX = double(ui->dtViewMinX->dateTime().toSecsSinceEpoch());
    view.maxX = double(ui->dtViewMaxX->dateTime().toSecsSinceEpoch());
    view.adjust();
    ui->plotter->setCurZoomPlotSettings(view);
    updateViewFields();
}

void MeasureWidget::on_btnShowFullPlot_clicked()
{
    if (m_model.rowCount() == 0)
        return;
    PlotSettings view = ui->plotter->getCurZoomPlotSettings();
    view.minX = double(m_model.reading(0).time / 1000);
    view.maxX = double(m_model.reading(m_model.rowCount() - 1).time / 1000) + 1;
    double low = INFINITY, high = -INFINITY;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        const ReadingsModel::Reading& r = m_model.reading(row);
        for (ReadingsModel::Variable variable : curveVariables) {
            if (!r.failed && std::isfinite(r.values[variable])) {
                low = std::min(low, double(r.values[variable]));
                high = std::max(high, double(r.values[variable]));
            }
        }
    }
    if (!std::isfinite(low))
        return;
    view.minY = low;
    view.maxY = high > low ? high : low + 1;
    view.adjust();
    ui->plotter->setCurZoomPlotSettings(view);
    updateViewFields();
}

void MeasureWidget::on_btnClear_clicked()
{
    if (QMessageBox::warning(this, tr("Clear data..."), tr("Do you really want to clear ALL data?"),
                             QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes)
        return;
    m_model.clear();
    ui->plotter->clearCurves();
    m_hasPlotPoint = false;
}

QString MeasureWidget::defaultFileName(const QString& extension) const
{
    QString folder = m_device ? m_device->getDeviceInfoString(QLatin1String(keyArchivePath)) : QString();
    if (folder.isEmpty())
        folder = AppSettings::archives_dir();
    const QString name = m_device ? m_device->getDeviceInfoString(QLatin1String(keyDefaultFileName)) : QString();
    const QString format = QStringLiteral("yyyyMMdd_hhmmss");
    const QString separator = QDir::separator();
    if (m_model.rowCount() > 1) {
        const QDateTime first = QDateTime::fromMSecsSinceEpoch(m_model.reading(0).time);
        const QDateTime last = QDateTime::fromMSecsSinceEpoch(m_model.reading(m_model.rowCount() - 1).time);
        return QStringLiteral("%1%2%3_%4-%5.%6")
            .arg(folder, separator, name, first.toString(format), last.toString(format), extension);
    }
    return QStringLiteral("%1%2%3_%4.%5")
        .arg(folder, separator, name, QDateTime::currentDateTime().toString(format), extension);
}

void MeasureWidget::on_btnSaveAsFile_clicked()
{
    const QString fileName = QFileDialog::getSaveFileName(
        this, tr("Save As..."), defaultFileName(QStringLiteral("csv")), tr("Archives (*.csv);;All files (*.*)"));
    if (fileName.isEmpty())
        return;
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        QMessageBox::critical(this, tr("Save As..."), tr("Cannot open file for writing: %1").arg(file.errorString()));
        return;
    }
    const int rows = m_model.rowCount();
    QProgressDialog progress(tr("Save File ..."), tr("Cancel"), 0, rows, this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    const QDateTime start = rows > 0 ? QDateTime::fromMSecsSinceEpoch(m_model.reading(0).time) : QDateTime();
    QByteArray text = FileThread::headerLine(m_device ? m_device->fullName() : QString(),
                                             m_device ? m_device->deviceTemplateName() : QString(), start)
                          .toLocal8Bit() +
                      '\n';
    for (int row = 0; row < rows; ++row) {
        if (row % 1000 == 0) {
            progress.setValue(row);
            progress.setLabelText(tr("Save record %1...").arg(row + 1));
            if (progress.wasCanceled()) {
                file.cancelWriting();
                return;
            }
        }
        const QVariantMap reading = m_model.readingMap(row);
        text += FileThread::archiveLine(row + 1, reading.value(QStringLiteral("DateTime")).toDateTime(), reading)
                    .toLocal8Bit() +
                '\n';
    }
    progress.setValue(rows);
    if (file.write(text) != text.size() || !file.commit())
        QMessageBox::critical(this, tr("Save As..."), tr("Cannot open file for writing: %1").arg(file.errorString()));
}

void MeasureWidget::on_btnSavePlotInFile_clicked()
{
    const QString fileName = QFileDialog::getSaveFileName(
        this, tr("Save As..."), defaultFileName(QStringLiteral("png")), tr("Archives (*.png);;All files (*.*)"));
    if (fileName.isEmpty())
        return;
    if (!ui->plotter->saveInFile(fileName))
        QMessageBox::critical(this, tr("Save As..."), tr("Cannot open file for writing: %1").arg(fileName));
}

void MeasureWidget::onFileThreadError(const QString& errorString)
{
    // The archive stops; polling goes on.
    m_archiving = false;
    if (m_device)
        m_device->setDeviceTagState(m_device->deviceTagState() & ~Device::TagStateArchived);
    ui->lbArchiveFile->setText(errorString);
    ui->lbArchiveFile->setToolTip(errorString);
    QMessageBox::critical(this, tr("Archive"), errorString);
}

void MeasureWidget::onFileThreadWriteLines(const QString& fileName, int count)
{
    Q_UNUSED(fileName)
    showArchiveFile(count);
}

void MeasureWidget::showArchiveFile(int lines)
{
    // The name, with its lines; the whole path is a tip away.
    const QString path = m_fileThread.fileName();
    ui->lbArchiveFile->setText(QStringLiteral("%1 [%2]").arg(QFileInfo(path).fileName()).arg(lines));
    ui->lbArchiveFile->setToolTip(path);
}

void MeasureWidget::onChangeThreadFile()
{
    showArchiveFile(0);
    if (m_device)
        m_device->setDeviceInfo(QLatin1String(keyArchiveFile), m_fileThread.fileName());
}

void MeasureWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        fillTimes();
        setPolling(m_polling);
        initWidget();
    }
    QWidget::changeEvent(event);
}
