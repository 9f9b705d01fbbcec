#include "commonwidget.h"
#include "ui_commonwidget.h"

#include "device.h"
#include "port.h"
#include "smallsymbolvalidator.h"
#include "utils.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalBlocker>

namespace {

QString hexOf(const QVariant& value)
{
    return QString::fromLatin1(value.toByteArray().toHex().toUpper());
}

bool isEmptyField(QWidget* field)
{
    auto* edit = qobject_cast<QLineEdit*>(field);
    return edit && edit->text().trimmed().isEmpty();
}

} // namespace

CommonWidget::CommonWidget(DeviceWidget* parent, bool hasSelfTest) : DeviceWidget(parent), ui(new Ui::CommonWidget)
{
    ui->setupUi(this);
    connect(parent, &DeviceWidget::deviceChanged, this, &CommonWidget::onDeviceChanged);
    connect(parent, &DeviceWidget::serialNameChanged, this, &CommonWidget::onSerialNameChanged);
    ui->txtTag->setValidator(new SmallSymbolValidator(ui->txtTag));
    ui->txtDesc->setValidator(new SmallSymbolValidator(ui->txtDesc));
    ui->txtMessage->setValidator(new SmallSymbolValidator(ui->txtMessage));
    ui->txtAssemlblyNumber->setBase(10);
    for (QLineEdit* field : {ui->txtTag, ui->txtDesc, ui->txtMessage, static_cast<QLineEdit*>(ui->txtAssemlblyNumber)})
        connect(field, &QLineEdit::textChanged, this, &CommonWidget::updateReadSaveCaptions);
    updateMyButtons(false);
    ui->btnSelfTest->setVisible(hasSelfTest);
    updateReadSaveCaptions();
}

CommonWidget::~CommonWidget()
{
    delete ui;
}

void CommonWidget::setExpectedCodes(int manufacturerCode, int deviceTypeCode)
{
    m_manufacturerCode = manufacturerCode;
    m_deviceTypeCode = deviceTypeCode;
}

void CommonWidget::updateMyButtons(bool on)
{
    onUpdateButtons(on);
    emit updateButtons(on);
}

void CommonWidget::onUpdateButtons(bool on)
{
    for (QWidget* widget :
         {static_cast<QWidget*>(ui->btnReadSaveMessage), static_cast<QWidget*>(ui->btnSavePollingAddress),
          static_cast<QWidget*>(ui->btnSaveTagDescDate), static_cast<QWidget*>(ui->btnSaveAssemblyNumber),
          static_cast<QWidget*>(ui->btnSaveDampingTime), static_cast<QWidget*>(ui->btnSavePreamblesCount),
          static_cast<QWidget*>(ui->btnReset), static_cast<QWidget*>(ui->btnSelfTest),
          static_cast<QWidget*>(ui->btnReadLongTag), static_cast<QWidget*>(ui->btnSaveLongTag),
          static_cast<QWidget*>(ui->chkWriteProtection)})
        widget->setEnabled(on);
}

void CommonWidget::onStartPeriod(bool on)
{
    for (QWidget* widget :
         {static_cast<QWidget*>(ui->btnSavePollingAddress), static_cast<QWidget*>(ui->btnFindDeviceBy73),
          static_cast<QWidget*>(ui->btnCheck), static_cast<QWidget*>(ui->btnCheckByTag),
          static_cast<QWidget*>(ui->btnReset), static_cast<QWidget*>(ui->cmbPorts)})
        widget->setEnabled(on);
}

void CommonWidget::onDeviceChanged(Device* device)
{
    if (m_device)
        disconnect(m_device, &Device::deviceStatus, this, &CommonWidget::onAppendDeviceStatus);
    setDevice(device);
    if (device) {
        connect(device, &Device::deviceStatus, this, &CommonWidget::onAppendDeviceStatus);
        m_bIsModifyBlocking = true;
        ui->spnPollingAddress->setValue(device->address());
        m_bIsModifyBlocking = false;
    }
    onSerialNameChanged();
}

void CommonWidget::onSerialNameChanged()
{
    const QSignalBlocker blocker(ui->cmbPorts);
    ui->cmbPorts->clear();
    Port* port = m_device ? m_device->port() : nullptr;
    if (port)
        ui->cmbPorts->addItem(port->property("serial_name").toString());
}

void CommonWidget::on_cmbPorts_currentIndexChanged(int index)
{
    Q_UNUSED(index)
}

// ---------------------------------------------------------------------------
// Checks

void CommonWidget::on_btnCheck_clicked()
{
    checkDevice(QString(), QString());
}

void CommonWidget::on_btnCheckByTag_clicked()
{
    const QString tag = ui->txtTag->text().trimmed();
    if (tag.isEmpty()) {
        QMessageBox::warning(this, tr("Device identification by tag"),
                             tr("Tag is empty!\nPlease enter a tag with up to 8 characters"));
        return;
    }
    checkDevice(tag, QString());
}

void CommonWidget::on_btnCheckByLongTag_clicked()
{
    const QString longTag = ui->txtLongTag->text().trimmed();
    if (longTag.isEmpty()) {
        QMessageBox::warning(this, tr("Device identification by long tag"),
                             tr("Long tag is empty!\nPlease enter a long tag with up to 32 characters"));
        return;
    }
    checkDevice(QString(), longTag);
}

void CommonWidget::checkDevice(const QString& tag, const QString& longTag)
{
    if (!m_device)
        return;
    const QString by = !tag.isEmpty() ? tr("by tag") : !longTag.isEmpty() ? tr("by long tag") : QString();
    if (!initProgressBar(tr("Device identification %1").arg(by), 6))
        return;
    resetCommonWidget(tag.isEmpty(), longTag.isEmpty());
    Device* device = m_device;
    if (!runExchange([device, tag, longTag]() { return device->checkHartDevice(tag, longTag, false); })) {
        showFinalMessage(0);
        return;
    }
    finishCheck(tag, true);
}

void CommonWidget::on_btnFindDeviceBy73_clicked()
{
    if (!m_device)
        return;
    const QString title = tr("Search by command 73");
    if (QMessageBox::warning(this, title, tr("Did you press two buttons on the device?"),
                             QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Yes) != QMessageBox::Yes)
        return;
    if (!initProgressBar(title, 6))
        return;
    resetCommonWidget(true, true);
    if (!readDevice(73)) {
        showFinalMessage(0);
        return;
    }
    finishCheck(QString(), false);
}

void CommonWidget::finishCheck(const QString& tag, bool storeAddressOfRevision5)
{
    showDeviceInfoInField(QStringLiteral("address"), ui->txtAddress);
    nextStep();
    showMainInfo(false);

    const bool accepted = checkDeviceIDs();
    updateMyButtons(accepted);
    Device* device = m_device;
    runExchange([device]() { return device->checkAdditionalStatus(true, false); });
    nextStep();
    if (!accepted) {
        showFinalMessage(0);
        return;
    }

    // A read that fails ends the sequence, and the tree learns of it; a tag
    // that differs ends it at once.
    const bool tellTree = [&]() {
        if (!readDevice(7))
            return true;
        nextStep();
        if (storeAddressOfRevision5 && device->getDeviceInfo(QStringLiteral("universal_cmd_version")).toInt() == 5)
            device->setDeviceInfo(QStringLiteral("polling_address"), device->address());
        showDeviceInfoInField(QStringLiteral("polling_address"), ui->spnPollingAddress);

        if (!readDevice(13))
            return true;
        const QString tagRead = device->getDeviceInfoString(QStringLiteral("tag")).trimmed();
        if (!tag.isEmpty() && tagRead != tag) {
            const QString text = tr("ERROR: Tags not equal!\nSend: '%1'\nResv: '%2'").arg(tag, tagRead);
            QApplication::setOverrideCursor(Qt::ArrowCursor);
            QMessageBox::critical(this, tr("Device identification by tag"), text);
            QApplication::restoreOverrideCursor();
            emit appendDeviceError(text);
            return false;
        }
        showDeviceInfoInField(QStringLiteral("tag"), ui->txtTag);
        showDeviceInfoInField(QStringLiteral("descriptor"), ui->txtDesc);
        showDeviceInfoInField(QStringLiteral("date"), ui->dateDev);
        nextStep();
        if (!readDevice(15))
            return true;
        nextStep();
        showDeviceInfoInField(QStringLiteral("damping_time"), ui->spnDampingTime);
        showDeviceInfoInField(QStringLiteral("write_protection"), ui->chkWriteProtection);
        if (!readDevice(16))
            return true;
        nextStep();
        showDeviceInfoInField(QStringLiteral("final_assembly_number"), ui->txtAssemlblyNumber);
        return true;
    }();
    if (tellTree)
        emit changed();
    showFinalMessage(0);
}

void CommonWidget::showDeviceInfoInFields()
{
    if (!m_device || !m_device->isIdentified())
        return;
    const QMap<QString, QWidget*> fields = m_inputFields;
    for (auto it = fields.cbegin(); it != fields.cend(); ++it) {
        if (m_device->hasDeviceInfoParam(it.key()))
            showDeviceInfoInField(it.key(), it.value());
    }
    showMainInfo(false);
}

bool CommonWidget::checkDeviceIDs()
{
    if (!m_device || m_manufacturerCode == 0 || m_deviceTypeCode == 0)
        return true;
    const QByteArray type = m_device->getDeviceInfoByteArray(QStringLiteral("expanded_device_type"));
    const QByteArray maker = m_device->getDeviceInfoByteArray(QStringLiteral("vendorID"));
    const int typeCode = type.isEmpty() ? -1 : quint8(type.back());
    const int makerCode = maker.isEmpty() ? -1 : quint8(maker.back());
    if (typeCode == m_deviceTypeCode && makerCode == m_manufacturerCode)
        return true;
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    const auto answer =
        QMessageBox::warning(this, tr("Check device"),
                             tr("Wrong template %1 for\ndevice type code = 0x%2%3 !!!\n\nContinue ?")
                                 .arg(m_device->deviceTemplateName(), twoHexDigits(typeCode), twoHexDigits(makerCode)),
                             QMessageBox::Yes | QMessageBox::Cancel);
    QApplication::restoreOverrideCursor();
    return answer != QMessageBox::Cancel;
}

void CommonWidget::showMainInfo(bool clear)
{
    if (m_device)
        showDeviceInfoInField(QStringLiteral("preambles_count"), ui->spnPreamblesCount);
    const QList<QLabel*> labels = {ui->lbDeviceTypeCode,     ui->lbManufacturerCode, ui->lbDeviceFlags,
                                   ui->lbHardwareVersion,    ui->lbSoftwareVersion,  ui->lbSpecificCmdVersion,
                                   ui->lbUniversalCmdVersion};
    if (clear || !m_device) {
        for (QLabel* label : labels)
            label->clear();
        return;
    }
    auto number = [this](const char* key) {
        return QString::number(m_device->getDeviceInfo(QLatin1String(key)).toInt());
    };
    ui->lbDeviceTypeCode->setText(hexOf(m_device->getDeviceInfo(QStringLiteral("expanded_device_type"))));
    ui->lbManufacturerCode->setText(hexOf(m_device->getDeviceInfo(QStringLiteral("vendorID"))));
    ui->lbDeviceFlags->setText(twoHexDigits(m_device->getDeviceInfo(QStringLiteral("device_flags")).toInt()));
    ui->lbHardwareVersion->setText(number("hardware_version"));
    ui->lbSoftwareVersion->setText(number("software_version"));
    ui->lbSpecificCmdVersion->setText(number("specific_cmd_version"));
    ui->lbUniversalCmdVersion->setText(number("universal_cmd_version"));
}

void CommonWidget::resetCommonWidget(bool clearTag, bool clearLongTag)
{
    updateMyButtons(false);
    if (m_device)
        m_device->checkOffDevice();
    m_bIsModifyBlocking = true;
    if (clearTag)
        ui->txtTag->clear();
    if (clearLongTag)
        ui->txtLongTag->clear();
    ui->txtAddress->setText(QStringLiteral("0x0"));
    ui->txtAssemlblyNumber->setText(QStringLiteral("0"));
    ui->txtDesc->clear();
    ui->txtMessage->clear();
    ui->dateDev->setDate(ui->dateDev->minimumDate());
    ui->chkWriteProtection->setChecked(false);
    showMainInfo(true);
    m_bIsModifyBlocking = false;
    emit resetWidget();
}

// ---------------------------------------------------------------------------
// Writes

bool CommonWidget::okToSaveChanges(const QString& what)
{
    if (!m_device)
        return false;
    const QString title = tr("Writing %1").arg(what);
    if (m_device->getDeviceInfo(QStringLiteral("write_protection")).toInt() == 1) {
        QMessageBox::warning(this, title, tr("The device is write-protected!"));
        return false;
    }
    const QString of = what.isEmpty() ? QString() : tr("of %1").arg(what);
    return QMessageBox::warning(this, title, tr("Do you want to save your changes %1?").arg(of),
                                QMessageBox::Yes | QMessageBox::Cancel) == QMessageBox::Yes;
}

void CommonWidget::storeField(const QString& name, QWidget* field)
{
    QVariant value;
    if (auto* input = qobject_cast<UniBaseInput*>(field))
        value = input->intValue();
    else if (auto* edit = qobject_cast<QLineEdit*>(field))
        value = edit->text();
    else if (auto* date = qobject_cast<QDateEdit*>(field))
        value = date->date();
    else if (auto* spin = qobject_cast<QSpinBox*>(field))
        value = spin->value();
    else if (auto* dspin = qobject_cast<QDoubleSpinBox*>(field))
        value = float(dspin->value());
    m_device->setDeviceInfo(name, value);
}

CommonWidget::ReadOrSave CommonWidget::readOrSave(QPushButton* button) const
{
    if (button == ui->btnSaveTagDescDate)
        return {button,
                {ui->txtTag, ui->txtDesc, ui->dateDev},
                tr("tag, descriptor and date"),
                13,
                18,
                {QStringLiteral("tag"), QStringLiteral("descriptor"), QStringLiteral("date")}};
    if (button == ui->btnReadSaveMessage)
        return {button, {ui->txtMessage}, tr("message"), 12, 17, {QStringLiteral("message")}};
    return {
        button, {ui->txtAssemlblyNumber}, tr("assemlbly number"), 16, 19, {QStringLiteral("final_assembly_number")}};
}

bool CommonWidget::fieldsEmpty(const ReadOrSave& action) const
{
    // The date alone never makes the tag button write.
    for (QWidget* field : action.fields) {
        if (qobject_cast<QLineEdit*>(field) && !isEmptyField(field))
            return false;
    }
    return true;
}

void CommonWidget::updateReadSaveCaptions()
{
    for (QPushButton* button : {ui->btnSaveTagDescDate, ui->btnReadSaveMessage, ui->btnSaveAssemblyNumber})
        button->setText(fieldsEmpty(readOrSave(button)) ? tr("Read") : tr("Save"));
}

void CommonWidget::runReadOrSave(const ReadOrSave& action)
{
    if (!m_device)
        return;
    if (fieldsEmpty(action)) {
        if (!initProgressBar(tr("Reading %1").arg(action.what), 1))
            return;
        if (readDevice(action.readCmd)) {
            for (int i = 0; i < action.names.size(); ++i)
                showDeviceInfoInField(action.names.at(i), action.fields.at(i));
            nextStep();
        }
        showFinalMessage(0);
        return;
    }
    if (!okToSaveChanges(action.what))
        return;
    for (int i = 0; i < action.names.size(); ++i)
        storeField(action.names.at(i), action.fields.at(i));
    if (!initProgressBar(tr("Writing %1").arg(action.what), 1))
        return;
    if (writeDevice(action.writeCmd)) {
        for (int i = 0; i < action.names.size(); ++i) {
            // The text fields show what the device took; the number stays.
            if (action.writeCmd == 19)
                setFieldColorModified(action.fields.at(i), false);
            else
                showDeviceInfoInField(action.names.at(i), action.fields.at(i));
        }
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void CommonWidget::on_btnSaveTagDescDate_clicked()
{
    runReadOrSave(readOrSave(ui->btnSaveTagDescDate));
}

void CommonWidget::on_btnReadSaveMessage_clicked()
{
    runReadOrSave(readOrSave(ui->btnReadSaveMessage));
}

void CommonWidget::on_btnSaveAssemblyNumber_clicked()
{
    runReadOrSave(readOrSave(ui->btnSaveAssemblyNumber));
}

void CommonWidget::simpleWrite(const QString& what, const QString& name, QWidget* field, int cmd)
{
    if (!initProgressBar(tr("Writing %1").arg(what), 1))
        return;
    storeField(name, field);
    if (writeDevice(cmd)) {
        setFieldColorModified(field, false);
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void CommonWidget::on_btnReadLongTag_clicked()
{
    if (!m_device || !initProgressBar(tr("Reading %1").arg(tr("long tag")), 1))
        return;
    if (readDevice(20)) {
        showDeviceInfoInField(QStringLiteral("long_tag"), ui->txtLongTag);
        nextStep();
    }
    showFinalMessage(0);
}

void CommonWidget::on_btnSaveLongTag_clicked()
{
    if (okToSaveChanges(tr("long tag")))
        simpleWrite(tr("long tag"), QStringLiteral("long_tag"), ui->txtLongTag, 22);
}

void CommonWidget::on_btnSaveDampingTime_clicked()
{
    if (okToSaveChanges(tr("damping time")))
        simpleWrite(tr("damping time"), QStringLiteral("damping_time"), ui->spnDampingTime, 34);
}

void CommonWidget::on_btnSavePreamblesCount_clicked()
{
    if (okToSaveChanges(tr("number of preambles")))
        simpleWrite(tr("number of preambles"), QStringLiteral("preambles_count"), ui->spnPreamblesCount, 59);
}

void CommonWidget::on_btnSavePollingAddress_clicked()
{
    if (!okToSaveChanges(tr("polling_address")))
        return;
    const auto answer = QMessageBox::warning(this, tr("Writing %1").arg(tr("polling_address")),
                                             tr("Do you want to disable the current loop function?"),
                                             QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    m_device->setDeviceInfo(QStringLiteral("current_loop_mode"), answer == QMessageBox::Yes ? 0 : 1);
    simpleWrite(tr("polling_address"), QStringLiteral("polling_address"), ui->spnPollingAddress, 6);
}

void CommonWidget::on_spnPollingAddress_valueChanged(int value)
{
    if (!m_device)
        return;
    // The address lives in the tree's configuration as well as in the device.
    m_device->setAddress(value);
    if (!m_bIsModifyBlocking) {
        m_device->setDeviceTagState(m_device->deviceTagState() | Device::TagStateChanged);
        emit changed();
    }
}

void CommonWidget::on_chkWriteProtection_stateChanged(int state)
{
    if (m_bIsModifyBlocking || !m_device)
        return;
    const QString removal = tr("\nTo remove write protection is possible only\nthrough the menu of the device!");
    auto setChecked = [this](bool checked) {
        const QSignalBlocker blocker(ui->chkWriteProtection);
        ui->chkWriteProtection->setChecked(checked);
    };
    if (state == Qt::Checked) {
        if (QMessageBox::warning(this, tr("Write protection"),
                                 tr("Do you want to set write protection in the device?\n") + removal,
                                 QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes) {
            setChecked(false);
            return;
        }
        if (!initProgressBar(tr("Set write protection"), 1)) {
            setChecked(false);
            return;
        }
        m_device->setDeviceInfo(QStringLiteral("write_protection"), 1);
        if (writeDevice(129)) {
            nextStep();
            emit changed();
        }
        showFinalMessage(0);
        return;
    }
    if (!initProgressBar(tr("Reading write protection flag"), 1)) {
        setChecked(true);
        return;
    }
    if (!readDevice(15)) {
        showFinalMessage(0);
        setChecked(true);
        return;
    }
    nextStep();
    showDeviceInfoInField(QStringLiteral("write_protection"), ui->chkWriteProtection);
    showFinalMessage(0);
    const bool isProtected = m_device->getDeviceInfo(QStringLiteral("write_protection")).toInt() == 1;
    setChecked(isProtected);
    if (isProtected)
        QMessageBox::warning(this, tr("Write protection"), removal);
}

void CommonWidget::onAppendDeviceStatus(const QString& statusText, const QByteArray& statusCode)
{
    Q_UNUSED(statusText)
    // A write refused for protection corrects the box.
    if (!statusCode.isEmpty() && statusCode.at(0) == 7 && !ui->chkWriteProtection->isChecked()) {
        if (m_device)
            m_device->setDeviceInfo(QStringLiteral("write_protection"), 1);
        const QSignalBlocker blocker(ui->chkWriteProtection);
        ui->chkWriteProtection->setChecked(true);
    }
}

void CommonWidget::on_btnReset_clicked()
{
    if (!m_device || !initProgressBar(tr("Reset"), 3))
        return;
    if (writeDevice(42)) {
        m_device->resetState();
        nextStep();
        waitWhileEventLoopTurns(2000, []() { return false; });
        nextStep();
        Device* device = m_device;
        runExchange([device]() { return device->checkAdditionalStatus(true, false); });
        nextStep();
    }
    showFinalMessage(0);
}

void CommonWidget::on_btnSelfTest_clicked()
{
    if (!m_device)
        return;
    if (QMessageBox::warning(this, tr("Device self test"),
                             tr("Are you sure you want to start the device self test? It can take some time!"),
                             QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes)
        return;
    if (!initProgressBar(tr("Self test"), 2))
        return;
    if (writeDevice(41)) {
        nextStep();
        Device* device = m_device;
        runExchange([device]() { return device->checkAdditionalStatus(true, false); });
        nextStep();
    }
    showFinalMessage(0);
}

void CommonWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        updateReadSaveCaptions();
    }
    DeviceWidget::changeEvent(event);
}
