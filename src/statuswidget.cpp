#include "statuswidget.h"
#include "ui_statuswidget.h"

#include "device.h"
#include "devicewidget.h"

#include <QApplication>
#include <QMessageBox>

namespace {

// What each step costs the window at most to stay alive.
void turnEventLoop()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
}

} // namespace

StatusWidget::StatusWidget(DeviceWidget* owner) : QWidget(owner), ui(new Ui::StatusWidget)
{
    ui->setupUi(this);
    connect(owner, &DeviceWidget::deviceChanged, this, &StatusWidget::onDeviceChanged);
    connect(owner, &DeviceWidget::init_progress_bar, this, &StatusWidget::onInitProgressBar);
    connect(owner, &DeviceWidget::next_step, this, &StatusWidget::onNextStep);
    connect(owner, &DeviceWidget::show_final_message, this, &StatusWidget::onShowFinalMessage);
}

StatusWidget::~StatusWidget()
{
    if (m_busy)
        QApplication::restoreOverrideCursor();
    delete ui;
}

QString StatusWidget::statusText() const
{
    return ui->lbStatus->text();
}

QString StatusWidget::errorText() const
{
    return ui->lbError->text();
}

void StatusWidget::onDeviceChanged(Device* device)
{
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    m_device = device;
    if (!device)
        return;
    connect(device, &Device::modbusMessage, this, &StatusWidget::onShowLogMessage);
    connect(device, &Device::deviceError, this, &StatusWidget::onAppendDeviceError);
    connect(device, &Device::deviceStatus, this, &StatusWidget::onAppendDeviceStatus);
}

void StatusWidget::onInitProgressBar(const QString& title, int max)
{
    if (m_busy)
        return;
    m_busy = true;
    m_title = title;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ui->lbStatus->clear();
    ui->lbError->clear();
    ui->progressBar->setRange(0, max);
    ui->progressBar->setValue(0);
    turnEventLoop();
}

void StatusWidget::onNextStep()
{
    ui->progressBar->setValue(ui->progressBar->value() + 1);
    turnEventLoop();
}

void StatusWidget::onShowFinalMessage(int steps)
{
    turnEventLoop();
    if (m_busy)
        QApplication::restoreOverrideCursor();
    if (steps == 0)
        steps = ui->progressBar->value();
    if (steps == ui->progressBar->maximum()) {
        ui->lbError->setText(QStringLiteral("<p style=\"color: green;\">%1</p>").arg(tr("completed successfully")));
    } else {
        ui->lbError->setText(QStringLiteral("<p style=\"color: red;\">%1</p>").arg(tr("completed with errors")));
        const QString error = m_device ? m_device->errorText() : QString();
        if (!error.isEmpty()) {
            QString text = error;
            text.replace(QLatin1String("***"), QLatin1String("\n*"));
            QMessageBox::critical(this, m_title.isEmpty() ? m_device->name() : m_title, text);
        }
    }
    ui->progressBar->setValue(0);
    m_busy = false;
}

void StatusWidget::onShowLogMessage(int addr, const QString& msg)
{
    Q_UNUSED(addr)
    if (msg.contains(QLatin1String(" TX ")) || msg.contains(QLatin1String(" RX ")))
        return;
    ui->lbError->setText(QStringLiteral("<p style=\"color: black;\">%1</p>").arg(msg.toHtmlEscaped()));
    turnEventLoop();
}

void StatusWidget::onAppendDeviceError(const QString& errorText)
{
    QString text = errorText;
    text.replace(QLatin1Char('\n'), QLatin1String(" - "));
    ui->lbError->setText(QStringLiteral("<p style=\"color: red;\">%1</p>").arg(text.toHtmlEscaped()));
    turnEventLoop();
}

void StatusWidget::onAppendDeviceStatus(const QString& statusText, const QByteArray& statusCode)
{
    Q_UNUSED(statusText)
    const QString code = QString::fromLatin1(statusCode.toHex(' ').toUpper());
    QString form = QStringLiteral("<p style=\"color: green; font: bold;\">%1</p>");
    // A device status in the second byte outweighs a communication or
    // command error in the first.
    if (!statusCode.isEmpty() && statusCode.at(0) != 0)
        form = QStringLiteral("<p style=\"color: red; font: bold;\">%1</p>");
    if (statusCode.size() > 1 && statusCode.at(1) != 0)
        form = QStringLiteral("<p style=\"color: magenta;\">%1</p>");
    ui->lbStatus->setText(form.arg(code));
}

void StatusWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QWidget::changeEvent(event);
}
