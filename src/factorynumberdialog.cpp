#include "factorynumberdialog.h"

#include "debugqt.h"
#include "device.h"
#include "ui_factorynumberdialog.h"

#include <QApplication>
#include <QPushButton>
#include <QRegularExpressionValidator>

namespace {

QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

QByteArray numberBytes(quint32 number)
{
    QByteArray bytes(3, '\0');
    bytes[0] = char((number >> 16) & 0xFF);
    bytes[1] = char((number >> 8) & 0xFF);
    bytes[2] = char(number & 0xFF);
    return bytes;
}

quint32 bytesNumber(const QByteArray& bytes)
{
    quint32 number = 0;
    for (char byte : bytes)
        number = (number << 8) | quint8(byte);
    return number;
}

} // namespace

FactoryNumberDialog::FactoryNumberDialog(Device* device, QWidget* parent)
    : QDialog(parent), ui(new Ui::FactoryNumberDialog), m_device(device)
{
    ui->setupUi(this);
    // Up to ten digits; the range, to 4294967295, is checked on "Write".
    ui->editCode->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,10}")), ui->editCode));
    ui->spinNumber->setRange(0, int(MaxFactoryNumber));
    connect(ui->spinNumber, &QSpinBox::valueChanged, this, &FactoryNumberDialog::showNumberBytes);
    connect(ui->buttonWrite, &QPushButton::clicked, this, &FactoryNumberDialog::onWriteClicked);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (m_device && m_device->isIdentified())
        ui->spinNumber->setValue(int(bytesNumber(m_device->hartDeviceID())));
    showNumberBytes(ui->spinNumber->value());
    showDevice();
}

FactoryNumberDialog::~FactoryNumberDialog()
{
    delete ui;
}

QString FactoryNumberDialog::statusText() const
{
    return ui->labelStatus->text();
}

QString FactoryNumberDialog::addressText() const
{
    return ui->valueAddress->text();
}

void FactoryNumberDialog::showDevice()
{
    ui->valueDevice->setText(m_device ? m_device->name() : QString());
    ui->valueAddress->setText(m_device && !m_device->hartAddress().isEmpty() ? hexText(m_device->hartAddress())
                                                                             : tr("not identified"));
    ui->buttonWrite->setEnabled(m_device != nullptr);
}

void FactoryNumberDialog::showNumberBytes(int number)
{
    ui->valueNumberHex->setText(QStringLiteral("0x ") + hexText(numberBytes(quint32(number))));
}

void FactoryNumberDialog::setStatus(const QString& text, bool good)
{
    ui->labelStatus->setStyleSheet(good ? QStringLiteral("color: darkgreen") : QStringLiteral("color: red"));
    ui->labelStatus->setText(text);
}

void FactoryNumberDialog::onWriteClicked()
{
    bool ok = false;
    const qulonglong code = ui->editCode->text().toULongLong(&ok);
    if (!ok || code > 0xFFFFFFFFULL) {
        setStatus(tr("The access code is a number from 0 to 4294967295."), false);
        ui->editCode->setFocus();
        return;
    }
    writeFactoryNumber(quint32(code), quint32(ui->spinNumber->value()));
}

bool FactoryNumberDialog::writeFactoryNumber(quint32 code, quint32 number)
{
    Device* d = m_device;
    if (!d)
        return false;
    if (number > MaxFactoryNumber) {
        setStatus(tr("The factory number is a number from 0 to %1.").arg(MaxFactoryNumber), false);
        return false;
    }
    DBG(LevelInfo) << "factory number" << number << "for" << d->fullName();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    bool done = false;
    if (!d->sendAdjustCode(code)) {
        setStatus(tr("The access code was refused: %1").arg(d->errorText()), false);
    } else {
        if (d->writeFactoryNumber(numberBytes(number))) {
            done = true;
            m_written = true;
            setStatus(tr("Factory number %1 written. Long address: %2.")
                          .arg(bytesNumber(d->hartDeviceID()))
                          .arg(hexText(d->hartAddress())),
                      true);
        } else {
            setStatus(tr("The factory number was not written: %1").arg(d->errorText()), false);
        }
        // Access is closed in any case; the device would close it by itself
        // only after ten minutes.
        if (!d->sendAdjustCode(0)) {
            DBG(LevelWarn) << "access not closed" << d->errorText();
            setStatus(statusText() + QLatin1Char('\n') + tr("Access was not closed: %1").arg(d->errorText()), false);
        }
    }
    QApplication::restoreOverrideCursor();
    showDevice();
    if (done)
        ui->spinNumber->setValue(int(bytesNumber(d->hartDeviceID())));
    return done;
}

void FactoryNumberDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
