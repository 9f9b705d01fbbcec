#include "devicesummarywidget.h"

#include "debugqt.h"
#include "device.h"
#include "ui_devicesummarywidget.h"

#include <QApplication>
#include <QFormLayout>
#include <QRegularExpression>

namespace {

// "20 91 00 91 01": two upper-case hex digits a byte.
QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

// "145 (0x91)".
QString codeText(int code)
{
    return QStringLiteral("%1 (0x%2)")
        .arg(code)
        .arg(QString::number(code, 16).toUpper().rightJustified(2, QLatin1Char('0')));
}

} // namespace

DeviceSummaryWidget::DeviceSummaryWidget(QWidget* parent) : QWidget(parent), ui(new Ui::DeviceSummaryWidget)
{
    ui->setupUi(this);
    connect(ui->buttonIdentify, &QPushButton::clicked, this, &DeviceSummaryWidget::identify);
    refresh();
}

DeviceSummaryWidget::~DeviceSummaryWidget()
{
    delete ui;
}

void DeviceSummaryWidget::setItem(ServerItem* item)
{
    m_device = qobject_cast<Device*>(item);
    refresh();
}

QString DeviceSummaryWidget::rowText(const QString& valueName) const
{
    auto* value = findChild<QLabel*>(valueName);
    if (!value || !ui->formLayout->isRowVisible(value))
        return QString();
    return value->text();
}

void DeviceSummaryWidget::setRow(QLabel* value, const QString& text)
{
    value->setText(text);
    ui->formLayout->setRowVisible(value, !text.isEmpty());
}

void DeviceSummaryWidget::refresh()
{
    Device* d = m_device;
    ui->buttonIdentify->setEnabled(d != nullptr);
    if (!d) {
        for (QLabel* value : findChildren<QLabel*>(QRegularExpression(QStringLiteral("^value"))))
            setRow(value, QString());
        return;
    }
    const QVariantMap& info = d->deviceInfo();
    auto infoText = [&](const char* key) { return info.value(QLatin1String(key)).toString().trimmed(); };

    setRow(ui->valueName, d->name());
    setRow(ui->valueTemplate, d->deviceTemplateName());
    setRow(ui->valuePollingAddress, QString::number(d->address()));
    setRow(ui->valueLongAddress, hexText(d->hartAddress()));
    const bool identified = d->isIdentified();
    setRow(ui->valueManufacturer, identified && info.contains(QStringLiteral("manufacturer_code"))
                                      ? codeText(info.value(QStringLiteral("manufacturer_code")).toInt())
                                      : QString());
    setRow(ui->valueDeviceType, identified && info.contains(QStringLiteral("device_type_code"))
                                    ? codeText(info.value(QStringLiteral("device_type_code")).toInt())
                                    : QString());
    QString id;
    if (identified) {
        quint32 number = 0;
        for (char byte : d->hartDeviceID())
            number = (number << 8) | quint8(byte);
        id = tr("%1 (number %2)").arg(hexText(d->hartDeviceID())).arg(number);
    }
    setRow(ui->valueDeviceId, id);
    setRow(ui->valueTag, infoText("tag"));
    setRow(ui->valueDescriptor, infoText("descriptor"));
    setRow(ui->valueMessage, infoText("message"));
    setRow(ui->valueState, d->deviceTagsStateToLongString());
    setRow(ui->valueError, d->errorText());
}

bool DeviceSummaryWidget::identify()
{
    Device* d = m_device;
    if (!d)
        return false;
    DBG(LevelInfo) << "identify" << d->fullName();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool found = d->readDevice(0);
    if (found) {
        // The identity is what counts; tag and message only fill the page.
        if (!d->readDevice(13))
            DBG(LevelWarn) << "no tag from" << d->fullName() << d->errorText();
        if (!d->readDevice(12))
            DBG(LevelWarn) << "no message from" << d->fullName() << d->errorText();
    }
    QApplication::restoreOverrideCursor();
    refresh();
    emit changed();
    return found;
}

void DeviceSummaryWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        refresh();
    }
    QWidget::changeEvent(event);
}
