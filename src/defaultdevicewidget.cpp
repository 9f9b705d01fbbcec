#include "defaultdevicewidget.h"
#include "ui_defaultdevicewidget.h"

#include "pvwidget.h"
#include "utils.h"

#include <QHeaderView>
#include <QMessageBox>
#include <QSignalBlocker>
#include <QTableWidget>

namespace {

// Codes of a device variable, a unit or a transfer function that stand for
// no real one.
constexpr int NotUsedCode = 250;

// One unit of a HART device variable class. Without a name of its own the
// unit is named as the device names its code.
struct Unit
{
    int code;
    int deviceClass;
    const char* name;
};

const Unit units[] = {
    {32, 64, nullptr},
    {11, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Pa  (Pa)")},
    {12, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "kPa (kPa)")},
    {237, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "MPa (MPa)")},
    {10, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "kgf/sm2 (kgf/sm2)")},
    {8, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "mbar (mbar)")},
    {7, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "bar (bar)")},
    {4, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "mmWS (mmWS)")},
    {1, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "inchWS (inchWS)")},
    {5, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "mmHg (mmHg)")},
    {2, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "inchHg (inchHg)")},
    {6, 65, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "psi (lb/inch2)")},
    {17, 66, nullptr},
    {19, 66, nullptr},
    {24, 66, nullptr},
    {28, 66, nullptr},
    {29, 66, nullptr},
    {131, 66, nullptr},
    {138, 66, nullptr},
    {132, 66, nullptr},
    {133, 66, nullptr},
    {134, 66, nullptr},
    {135, 66, nullptr},
    {41, 68, nullptr},
    {43, 68, nullptr},
    {40, 68, nullptr},
    {46, 68, nullptr},
    {113, 68, nullptr},
    {49, 69, nullptr},
    {48, 69, nullptr},
    {45, 69, nullptr},
    {47, 69, nullptr},
    {51, 70, nullptr},
    {50, 70, nullptr},
    {52, 70, nullptr},
    {53, 70, nullptr},
    {60, 71, nullptr},
    {61, 71, nullptr},
    {62, 71, nullptr},
    {70, 72, nullptr},
    {71, 72, nullptr},
    {72, 72, nullptr},
    {73, 72, nullptr},
    {74, 72, nullptr},
    {75, 72, nullptr},
    {91, 73, nullptr},
    {92, 73, nullptr},
    {95, 73, nullptr},
    {96, 73, nullptr},
    {97, 73, nullptr},
    {170, 73, nullptr},
    {146, 73, nullptr},
    {147, 73, nullptr},
    {59, 81, nullptr},
    {139, 81, nullptr},
    {169, 81, nullptr},
    {36, 83, nullptr},
    {58, 83, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "V")},
    {39, 84, nullptr},
    {37, 85, nullptr},
    {163, 85, nullptr},
    {170, 85, nullptr},
    {56, 87, nullptr},
    {66, 87, nullptr},
    {67, 87, nullptr},
    {170, 97, nullptr},
    {171, 97, nullptr},
    {172, 97, nullptr},
    // A share: of a level, a volume or a concentration, or of nothing named.
    {57, 0, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "% (percent)")},
    {57, 88, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "% (percent)")},
    {57, 90, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "% (percent)")},
    {57, 92, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "% (percent)")},
};

// The rows every unit list ends with.
const Unit specialUnits[] = {
    {0, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Null")},
    {250, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Not Used")},
    {251, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "None")},
    {252, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Unknown")},
    {253, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Special")},
};

const Unit transferFunctions[] = {
    {0, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Linear")},
    {1, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Square root")},
    {2, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Square root third power")},
    {3, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Square root fifth power")},
    {4, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Special curve")},
    {5, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Square")},
    {230, -1, QT_TRANSLATE_NOOP("DefaultDeviceWidget", "Discrete (switch)")},
};

// The class a unit belongs to, for a device that did not tell the class;
// 0 when the unit says nothing of it.
int classOfUnit(int code)
{
    for (const Unit& unit : units) {
        if (unit.code == code)
            return unit.deviceClass;
    }
    return 0;
}

QVariantMap item(int code, const QString& name, int deviceClass = -1)
{
    return {{QStringLiteral("id"), code}, {QStringLiteral("name"), name}, {QStringLiteral("class"), deviceClass}};
}

// The four dynamic variables with their keys.
const char* const dynamicKeys[] = {"PV", "SV", "TV", "QV"};

QString dynamicKey(int index, const char* suffix)
{
    return QLatin1String(dynamicKeys[index]) + QLatin1String(suffix);
}

QString slotKey(int slot, const char* suffix)
{
    return QStringLiteral("slot_%1_").arg(slot) + QLatin1String(suffix);
}

enum Column { ColumnCode, ColumnClass, ColumnValue, ColumnUnit, ColumnStatus, ColumnCount };

} // namespace

DefaultDeviceWidget::DefaultDeviceWidget(QWidget* parent) : MainDeviceWidget(parent), ui(new Ui::DefaultDeviceWidget)
{
    ui->setupUi(this);
    initWidget();
    composeEditor({ui->tabWidget, ui->gridMain, ui->layoutStatus, 4, true, true});
    showDeviceVariableInfo(-1);
}

DefaultDeviceWidget::~DefaultDeviceWidget()
{
    delete ui;
}

void DefaultDeviceWidget::initWidget()
{
    MainDeviceWidget::initWidget();
    addWriteFields({
        {"sensor_number", ui->spnSensorNumber, 49},
        {"range_max", ui->dspnRangeMax, 35},
        {"range_min", ui->dspnRangeMin, 35},
        {"input_units", ui->cmbInputUnits, 44},
        {"conversion_function", ui->cmbTransferFunction, 47},
        {"PV_dev_variable_code", ui->cmbPVDevVariable, 51},
        {"SV_dev_variable_code", ui->cmbSVDevVariable, 51},
        {"TV_dev_variable_code", ui->cmbTVDevVariable, 51},
        {"QV_dev_variable_code", ui->cmbQVDevVariable, 51},
        {"dev_variable_limits_unit_code", ui->cmbDevVariableUnits, 53},
    });
    loadLists();
}

void DefaultDeviceWidget::loadLists()
{
    initComboBoxes(0, ui->cmbInputUnits);
    initComboBoxes(0, ui->cmbDevVariableUnits);
    QVariantList functions;
    for (const Unit& function : transferFunctions)
        functions << item(function.code, tr(function.name));
    for (const Unit& special : specialUnits) {
        if (special.code != 0)
            functions << item(special.code, tr(special.name));
    }
    DeviceWidget::loadComboBoxItemsWithItemData(functions, ui->cmbTransferFunction);
    initDVTableWidget();
    initDeviceVariableComboBoxes();
}

void DefaultDeviceWidget::initComboBoxes(int deviceClass, QComboBox* box)
{
    QVariantList items;
    for (const Unit& unit : units)
        items << item(unit.code, unit.name ? tr(unit.name) : Device::getUnitCodeText(unit.code, unit.deviceClass),
                      unit.deviceClass);
    loadComboBoxItemsWithItemData(items, box, deviceClass);
}

void DefaultDeviceWidget::loadComboBoxItemsWithItemData(const QVariantList& items, QComboBox* box, int deviceClass)
{
    const QString classKey = QStringLiteral("class");
    bool known = false;
    for (const QVariant& row : items)
        known = known || (deviceClass > 0 && row.toMap().value(classKey).toInt() == deviceClass);
    // A class without units of its own, or none told, offers every unit once.
    QVariantList rows;
    QList<int> codes;
    for (const QVariant& row : items) {
        const QVariantMap map = row.toMap();
        const int code = map.value(QStringLiteral("id")).toInt();
        if (known ? map.value(classKey).toInt() == deviceClass : !codes.contains(code)) {
            rows << row;
            codes << code;
        }
    }
    for (const Unit& special : specialUnits)
        rows << item(special.code, tr(special.name));
    DeviceWidget::loadComboBoxItemsWithItemData(rows, box);
}

void DefaultDeviceWidget::initDeviceVariableComboBoxes()
{
    // The device tells the code of its last device variable; a device of
    // revision 5 does not, and its codes are taken as those of PV to QV.
    const QVariantMap& info = m_device ? m_device->deviceInfo() : QVariantMap();
    const QString countKey = QStringLiteral("dev_variables_count");
    const int count = info.contains(countKey) ? qMin(info.value(countKey).toInt() + 1, NotUsedCode) : 4;
    QVariantList codes;
    for (int code = 0; code < count; ++code)
        codes << item(code, QString::number(code));
    QComboBox* boxes[] = {ui->cmbPVDevVariable, ui->cmbSVDevVariable, ui->cmbTVDevVariable, ui->cmbQVDevVariable};
    DeviceWidget::loadComboBoxItemsWithItemData(codes, boxes[0]);
    // PV always shows a device variable; the others may show none.
    codes << item(NotUsedCode, tr("Not Used"));
    for (int i = 1; i < 4; ++i)
        DeviceWidget::loadComboBoxItemsWithItemData(codes, boxes[i]);
}

void DefaultDeviceWidget::initDVTableWidget()
{
    const bool blocking = m_bIsModifyBlocking;
    m_bIsModifyBlocking = true;
    ui->tableWidgetDV->setRowCount(0);
    ui->tableWidgetDV->setColumnCount(ColumnCount);
    ui->tableWidgetDV->setHorizontalHeaderLabels({tr("Code"), tr("Class"), tr("Value"), tr("Unit"), tr("Status")});
    ui->tableWidgetDV->horizontalHeader()->setStretchLastSection(true);
    ui->tableWidgetDV->verticalHeader()->setVisible(false);
    m_bIsModifyBlocking = blocking;
}

// ---------------------------------------------------------------------------
// Showing the configuration

void DefaultDeviceWidget::showDeviceInfoInFields()
{
    MainDeviceWidget::showDeviceInfoInFields();
    showSensorInfo();
    showRangeInfo();
    showDynamicVariableInfo();
    showDeviceVariablesInfo();
    showAnalogInputInfo();
}

void DefaultDeviceWidget::showCodeInBox(const QString& name, QComboBox* box)
{
    const QVariant value = m_device ? m_device->deviceInfo().value(name) : QVariant();
    if (value.isValid() && box->findData(value.toInt()) < 0) {
        const QSignalBlocker blocker(box);
        box->addItem(tr("code %1").arg(value.toInt()), value.toInt());
    }
    showDeviceInfoInField(name, box);
}

void DefaultDeviceWidget::showSensorInfo()
{
    showDeviceInfoInField(QStringLiteral("sensor_number"), ui->spnSensorNumber);
    showDeviceInfoInField(QStringLiteral("sensor_range_min"), ui->lbSensorRangeMin);
    showDeviceInfoInField(QStringLiteral("sensor_range_max"), ui->lbSensorRangeMax);
    showDeviceInfoInField(QStringLiteral("sensor_minimum_range"), ui->lbSensorMinimumRange);
    const QVariantMap& info = m_device ? m_device->deviceInfo() : QVariantMap();
    const QString unit = info.contains(QStringLiteral("sensor_unit_code"))
                             ? Device::getUnitCodeText(info.value(QStringLiteral("sensor_unit_code")).toInt(),
                                                       info.value(QStringLiteral("PV_class_code")).toInt())
                             : QString();
    for (QLabel* label : {ui->lbSensorUnit1, ui->lbSensorUnit2, ui->lbSensorUnit3})
        label->setText(unit);
}

void DefaultDeviceWidget::showRangeInfo()
{
    if (!m_device)
        return;
    const QVariantMap& info = m_device->deviceInfo();
    showDeviceInfoInField(QStringLiteral("range_min"), ui->dspnRangeMin);
    showDeviceInfoInField(QStringLiteral("range_max"), ui->dspnRangeMax);
    const int unit = info.value(QStringLiteral("range_unit_code"), info.value(QStringLiteral("PV_unit_code"))).toInt();
    const int pvClass = info.value(QStringLiteral("PV_class_code")).toInt();
    const QString unitText = Device::getUnitCodeText(unit, pvClass);
    ui->lbRangeUnit1->setText(unitText);
    ui->lbRangeUnit2->setText(unitText);
    // The units of the primary variable are those of its range.
    if (info.contains(QStringLiteral("range_unit_code")) || info.contains(QStringLiteral("PV_unit_code")))
        m_device->setDeviceInfo(QStringLiteral("input_units"), unit);
    initComboBoxes(pvClass > 0 && pvClass < NotUsedCode ? pvClass : classOfUnit(unit), ui->cmbInputUnits);
    showCodeInBox(QStringLiteral("input_units"), ui->cmbInputUnits);
    showCodeInBox(QStringLiteral("conversion_function"), ui->cmbTransferFunction);
    const QString alarmKey = QStringLiteral("PV_alarm_selection_code");
    ui->txtPVAlarmCode->setText(info.contains(alarmKey) ? Device::getPVAlarmSelectionText(info.value(alarmKey).toInt())
                                                        : QString());
    const bool writeProtected = info.value(QStringLiteral("write_protection")).toInt() == 1;
    ui->lbWriteProtection->setText(writeProtected ? tr("write protection is enabled") : QString());
}

void DefaultDeviceWidget::showAnalogInputInfo()
{
    const QVariantMap& info = m_device ? m_device->deviceInfo() : QVariantMap();
    const QString statusKey = QStringLiteral("extended_status");
    ui->txtExtendedStatus->setText(
        info.contains(statusKey) ? QStringLiteral("0x") + twoHexDigits(info.value(statusKey).toInt()) : QString());
    showDeviceVariableInfo(ui->tableWidgetDV->currentRow());
}

void DefaultDeviceWidget::showDynamicVariableInfo()
{
    QComboBox* boxes[] = {ui->cmbPVDevVariable, ui->cmbSVDevVariable, ui->cmbTVDevVariable, ui->cmbQVDevVariable};
    QLabel* classes[] = {ui->lbPVClass, ui->lbSVClass, ui->lbTVClass, ui->lbQVClass};
    const QVariantMap& info = m_device ? m_device->deviceInfo() : QVariantMap();
    for (int i = 0; i < 4; ++i) {
        const QString key = dynamicKey(i, "_dev_variable_code");
        const QString classKey = dynamicKey(i, "_class_code");
        classes[i]->setText(info.contains(classKey) ? Device::getClassificationText(info.value(classKey).toInt())
                                                    : QString());
        if (!info.contains(key)) {
            const QSignalBlocker blocker(boxes[i]);
            boxes[i]->setCurrentIndex(-1);
            boxes[i]->setEnabled(false);
            continue;
        }
        showCodeInBox(key, boxes[i]);
        // 250 and above is no device variable: not used, none, unknown. The
        // box shows it and cannot be changed.
        boxes[i]->setEnabled(info.value(key).toInt() < NotUsedCode);
    }
}

void DefaultDeviceWidget::showDeviceVariablesInfo()
{
    const QVariantMap& info = m_device ? m_device->deviceInfo() : QVariantMap();
    QTableWidget* table = ui->tableWidgetDV;
    const bool blocking = m_bIsModifyBlocking;
    m_bIsModifyBlocking = true;
    table->setRowCount(0);
    int selected = -1;
    for (int slot = 0; info.contains(slotKey(slot, "code")); ++slot) {
        const int code = info.value(slotKey(slot, "code")).toInt();
        // An answer may leave a variable out: its row keeps the code alone.
        auto text = [&](const char* suffix, const std::function<QString(const QVariant&)>& format) {
            const QString key = slotKey(slot, suffix);
            return info.contains(key) ? format(info.value(key)) : QString();
        };
        const QStringList cells = {
            QString::number(code),
            text("class", [](const QVariant& v) { return Device::getClassificationText(v.toInt()); }),
            text("value", [](const QVariant& v) { return QString::number(v.toDouble(), 'g', 7); }),
            text("unit_code",
                 [&](const QVariant& v) {
                     return Device::getUnitCodeText(v.toInt(), info.value(slotKey(slot, "class")).toInt());
                 }),
            text("status", [](const QVariant& v) { return Device::getDeviceVariableStatusText(v.toInt()); }),
        };
        table->insertRow(slot);
        for (int column = 0; column < ColumnCount; ++column) {
            auto* cell = new QTableWidgetItem(cells.at(column));
            cell->setData(Qt::UserRole, code);
            table->setItem(slot, column, cell);
        }
        if (info.contains(QStringLiteral("dev_variable_code")) &&
            info.value(QStringLiteral("dev_variable_code")).toInt() == code)
            selected = slot;
        // The boxes of the dynamic variables name each variable by its class.
        const QString classText = cells.at(ColumnClass);
        for (QComboBox* box :
             {ui->cmbPVDevVariable, ui->cmbSVDevVariable, ui->cmbTVDevVariable, ui->cmbQVDevVariable}) {
            const int index = box->findData(code);
            if (index >= 0)
                box->setItemText(index, classText.isEmpty() ? cells.at(ColumnCode)
                                                            : QStringLiteral("%1 - %2").arg(code).arg(classText));
        }
    }
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    // The group keeps the variable it shows; no row, no variable.
    m_bIsModifyBlocking = true;
    if (selected >= 0)
        table->setCurrentCell(selected, 0);
    else
        showDeviceVariableInfo(-1);
    m_bIsModifyBlocking = blocking;
}

void DefaultDeviceWidget::showDeviceVariableInfo(int row)
{
    const QVariantMap& info = m_device ? m_device->deviceInfo() : QVariantMap();
    const bool shown = row >= 0 && info.contains(QStringLiteral("dev_variable_code"));
    ui->grpVariable->setEnabled(shown);
    ui->grpVariable->setTitle(
        shown ? tr("Device variable %1").arg(info.value(QStringLiteral("dev_variable_code")).toInt())
              : tr("Device variable"));
    if (!shown)
        return;
    showDeviceInfoInField(QStringLiteral("dev_variable_sensor"), ui->spnVariableSensorNumber, false);
    const int unit = info.value(QStringLiteral("dev_variable_limits_unit_code")).toInt();
    const QString classKey = QStringLiteral("dev_variable_class");
    const int deviceClass = info.contains(classKey) ? info.value(classKey).toInt() : classOfUnit(unit);
    initComboBoxes(deviceClass, ui->cmbDevVariableUnits);
    showCodeInBox(QStringLiteral("dev_variable_limits_unit_code"), ui->cmbDevVariableUnits);
    showDeviceInfoInField(QStringLiteral("dev_variable_usl"), ui->dspnUSL, false);
    showDeviceInfoInField(QStringLiteral("dev_variable_lsl"), ui->dspnLSL, false);
    showDeviceInfoInField(QStringLiteral("dev_variable_span"), ui->dspnMinSpan, false);
    const QString unitText = Device::getUnitCodeText(unit, deviceClass);
    for (QLabel* label : {ui->lbUSLUnit, ui->lbLSLUnit, ui->lbMinSpanUnit})
        label->setText(unitText);
    const QString familyKey = QStringLiteral("dev_variable_family");
    ui->txtDevVariableFamily->setText(info.contains(familyKey) ? Device::getFamilyText(info.value(familyKey).toInt())
                                                               : QString());
}

// ---------------------------------------------------------------------------
// Buttons and their states

void DefaultDeviceWidget::setFieldColorModified(QWidget* field, bool modified)
{
    MainDeviceWidget::setFieldColorModified(field, modified);
    updateWriteButton();
}

void DefaultDeviceWidget::updateWriteButton()
{
    const bool on = !m_writeParameters.isEmpty() && m_hasReadedConfig;
    setWriteButtonEnabled(ui->btnWriteCfgInDevice, on);
}

void DefaultDeviceWidget::onUpdateButtons(bool on)
{
    for (QPushButton* button :
         {ui->btnReadCfgFromDevice, ui->btnAdjustZero, ui->btnAdjust4mA, ui->btnAdjust20mA, ui->btnSetFixedCurrent,
          ui->btnResetFixedCurrent, ui->btnSaveMinByPV, ui->btnSaveMaxByPV})
        button->setEnabled(on);
    // A row asks the device for its variable: not before it is known.
    ui->tableWidgetDV->setEnabled(on);
    ui->btnWriteCfgInDevice->setEnabled(false);
}

void DefaultDeviceWidget::onStartPeriod(bool deviceFree)
{
    MainDeviceWidget::onStartPeriod(deviceFree);
    m_polling = !deviceFree;
    // The write and the adjustments wait for the end of polling, each to
    // come back as it was.
    for (QPushButton* button : {ui->btnWriteCfgInDevice, ui->btnAdjustZero, ui->btnAdjust4mA, ui->btnAdjust20mA,
                                ui->btnSetFixedCurrent, ui->btnResetFixedCurrent}) {
        if (!deviceFree) {
            m_mapButtons.insert(button, button->isEnabled());
            button->setEnabled(false);
        } else {
            button->setEnabled(m_mapButtons.value(button));
        }
    }
    emit changed();
}

void DefaultDeviceWidget::onResetWidget()
{
    // The identification tab's reset reaches the other panels by the
    // editor's own signal already.
    MainDeviceWidget::onResetWidget();
    onUpdateButtons(false);
}

// ---------------------------------------------------------------------------
// Reading and writing the configuration

bool DefaultDeviceWidget::requestDeviceVariables()
{
    m_device->removeAllSlotesInfo();
    const QVariantMap& info = m_device->deviceInfo();
    const QString countKey = QStringLiteral("dev_variables_count");
    const int revision = info.value(QStringLiteral("universal_cmd_version")).toInt();
    // Revision 5 has no command 9 and tells no device variables.
    if (!info.contains(countKey) || revision < 6)
        return true;
    // The count is the code of the last variable. One request takes up to 8
    // variables under revision 7, up to 4 under revision 6.
    const int count = qMin(info.value(countKey).toInt() + 1, NotUsedCode);
    const int perRequest = revision >= 7 ? 8 : 4;
    m_device->sendModbusMessage(tr("Try command 9 to get ") + tr("device variables"));
    QVariantMap found;
    bool ok = true;
    for (int first = 0; ok && first < count; first += perRequest) {
        m_device->removeAllSlotesInfo();
        const int inRequest = qMin(perRequest, count - first);
        for (int slot = 0; slot < inRequest; ++slot)
            m_device->setDeviceInfo(slotKey(slot, "code"), first + slot);
        ok = writeDevice(9);
        for (int slot = 0; slot < inRequest; ++slot) {
            for (const char* suffix : {"code", "class", "unit_code", "value", "status"}) {
                if (m_device->hasDeviceInfoParam(slotKey(slot, suffix)))
                    found.insert(slotKey(first + slot, suffix), m_device->deviceInfo().value(slotKey(slot, suffix)));
            }
        }
    }
    m_device->removeAllSlotesInfo();
    for (auto it = found.cbegin(); it != found.cend(); ++it)
        m_device->setDeviceInfo(it.key(), it.value());
    return ok;
}

bool DefaultDeviceWidget::readDeviceVariable()
{
    return m_device->hasDeviceInfoParam(QStringLiteral("dev_variable_code")) && writeDevice(54);
}

void DefaultDeviceWidget::on_btnReadCfgFromDevice_clicked()
{
    if (!m_device || !initProgressBar(tr("Read device configuration"), 7))
        return;
    m_hasReadedConfig = false;
    const QList<std::function<bool()>> sequence = {
        [this]() { return readDevice(8); },
        [this]() {
            if (!readDevice(3))
                return false;
            initDeviceVariableComboBoxes();
            return true;
        },
        [this]() {
            for (int i = 0; i < 4; ++i)
                m_device->removeDeviceInfo(dynamicKey(i, "_dev_variable_code"));
            const bool ok = readDevice(50);
            showDynamicVariableInfo();
            return ok;
        },
        [this]() {
            initDVTableWidget();
            return requestDeviceVariables();
        },
        [this]() { return readDevice(14); },
        [this]() { return readDevice(15); },
    };
    int steps = 1;
    nextStep();
    for (QLabel* label : {ui->lbPVClass, ui->lbSVClass, ui->lbTVClass, ui->lbQVClass})
        label->clear();
    for (int i = 0; i < 4; ++i)
        m_device->removeDeviceInfo(dynamicKey(i, "_class_code"));
    for (const auto& step : sequence) {
        if (!step())
            break;
        nextStep();
        ++steps;
    }
    showFinalMessage(steps);
    emit changed();
    showAnalogInputInfo();
    showRangeInfo();
    showSensorInfo();
    showDeviceVariablesInfo();
    m_hasReadedConfig = steps == 7;
    updateWriteButton();
}

void DefaultDeviceWidget::on_btnWriteCfgInDevice_clicked()
{
    const QList<int> list = getWriteFunctionsList();
    if (list.isEmpty())
        return;
    m_writeList = list;
    execWriteFunctionsByList(list, list.contains(44) || list.contains(51) || list.contains(53));
    m_writeList.clear();
    updateWriteButton();
}

void DefaultDeviceWidget::execAdditionalActions()
{
    const bool units = m_writeList.contains(44);
    const bool mapping = m_writeList.contains(51);
    if (mapping) {
        readDevice(3);
        readDevice(8);
    }
    // New units change the device variables' values and limits too.
    if (units || m_writeList.contains(53)) {
        initDVTableWidget();
        requestDeviceVariables();
        readDeviceVariable();
        showDeviceVariablesInfo();
    }
    // The range and the sensor are those of the primary variable, which
    // the mapping may have changed.
    if (units || mapping) {
        readDevice(14);
        readDevice(15);
    }
    showRangeInfo();
    showSensorInfo();
    showDynamicVariableInfo();
    showAnalogInputInfo();
}

void DefaultDeviceWidget::on_tableWidgetDV_currentItemChanged(QTableWidgetItem* current, QTableWidgetItem* previous)
{
    if (!current || !m_device)
        return;
    const int row = current->row();
    if (m_bIsModifyBlocking) {
        showDeviceVariableInfo(row);
        return;
    }
    // During an exchange the device's values are not to be touched, not
    // even read: the row goes back to where it was.
    if (isActiveTransaction()) {
        const QSignalBlocker blocker(ui->tableWidgetDV);
        ui->tableWidgetDV->setCurrentItem(previous);
        return;
    }
    const int code = current->data(Qt::UserRole).toInt();
    m_device->setDeviceInfo(QStringLiteral("dev_variable_code"), code);
    for (const auto& [slotSuffix, key] :
         {std::pair{"unit_code", "dev_variable_limits_unit_code"}, std::pair{"class", "dev_variable_class"}}) {
        if (m_device->hasDeviceInfoParam(slotKey(row, slotSuffix)))
            m_device->setDeviceInfo(QLatin1String(key), m_device->deviceInfo().value(slotKey(row, slotSuffix)));
    }
    if (!initProgressBar(tr("Read device variable information"), 1))
        return;
    if (writeDevice(54))
        nextStep();
    showAnalogInputInfo();
    showFinalMessage(0);
}

// ---------------------------------------------------------------------------
// Zero, current and range

void DefaultDeviceWidget::on_btnAdjustZero_clicked()
{
    if (!m_device || !m_pvWidget->readPrimaryVariable(true))
        return;
    const QString pv = QString::number(double(m_device->getDeviceInfoFloat(QStringLiteral("PV"))));
    if (QMessageBox::warning(this, tr("Zero adjustment"),
                             tr("Do you want to set current\nPrimary Variable value=%1 %2\nas Zero Value ?")
                                 .arg(pv, m_device->getPVUnitCodeText()),
                             QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes)
        return;
    if (!initProgressBar(tr("Adjusting zero"), 2))
        return;
    nextStep();
    if (writeDevice(43)) {
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

bool DefaultDeviceWidget::confirmCurrentAdjustment(bool upper)
{
    const QString title = upper ? tr("20mA adjustment") : tr("4mA adjustment");
    const QString fixed = upper ? tr("Have you set fixed loop current value at 20 mA ?")
                                : tr("Have you set fixed loop current value at 4 mA ?");
    if (QMessageBox::warning(this, title, fixed, QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes)
        return false;
    const QString measured = upper ? tr("Do you really want to set the measured current value =%1 as 20 mA ?")
                                   : tr("Do you really want to set the measured current value=%1 as 4 mA ?");
    return QMessageBox::warning(this, title, measured.arg(ui->dspnMeasuringCurrent->value()),
                                QMessageBox::Yes | QMessageBox::Cancel) == QMessageBox::Yes;
}

void DefaultDeviceWidget::on_btnAdjust4mA_clicked()
{
    if (confirmCurrentAdjustment(false))
        onAdjust4mA_clicked(ui->dspnMeasuringCurrent);
}

void DefaultDeviceWidget::on_btnAdjust20mA_clicked()
{
    // This button, too, runs the 4 mA adjustment: so it is meant.
    if (confirmCurrentAdjustment(true))
        onAdjust4mA_clicked(ui->dspnMeasuringCurrent);
}

void DefaultDeviceWidget::on_btnSetFixedCurrent_clicked()
{
    if (setFixedCurrent(float(ui->dspnFixedCurrent->value())))
        showDeviceInfoInField(QStringLiteral("fixed_current"), ui->dspnFixedCurrent, false);
}

void DefaultDeviceWidget::on_btnResetFixedCurrent_clicked()
{
    setFixedCurrent(0);
}

void DefaultDeviceWidget::on_btnSaveMinByPV_clicked()
{
    saveRangeMinByPV();
}

void DefaultDeviceWidget::on_btnSaveMaxByPV_clicked()
{
    saveRangeMaxByPV();
}

void DefaultDeviceWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        // The form's texts and the boxes' rows, kept where they stand.
        const bool blocking = m_bIsModifyBlocking;
        m_bIsModifyBlocking = true;
        ui->retranslateUi(this);
        loadLists();
        m_bIsModifyBlocking = blocking;
        if (m_device) {
            showRangeInfo();
            showDynamicVariableInfo();
            showDeviceVariablesInfo();
            showAnalogInputInfo();
        }
    }
    MainDeviceWidget::changeEvent(event);
}
