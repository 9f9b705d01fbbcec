#include "devicewidget.h"

#include "debugqt.h"
#include "device.h"
#include "port.h"
#include "statuswidget.h"
#include "unibaseinput.h"
#include "utils.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>

namespace {

// The captions of the tabs that the editors share, for lupdate; the other
// tabs are captioned by their own panels.
const char* const tabCaptions[] = {
    QT_TRANSLATE_NOOP("DeviceWidget", "Custom"), QT_TRANSLATE_NOOP("DeviceWidget", "Measurement"),
    QT_TRANSLATE_NOOP("DeviceWidget", "Metrologic"), QT_TRANSLATE_NOOP("DeviceWidget", "Hart Log")};

const QColor modifiedColour = Qt::blue;

// Bytes as a field shows them: "0x" and upper-case digits.
QString hexText(const QVariant& value)
{
    return QStringLiteral("0x") + QString::fromLatin1(value.toByteArray().toHex().toUpper());
}

} // namespace

DeviceWidget::DeviceWidget(QWidget* parent, Device* device) : QWidget(parent), m_device(device)
{}

DeviceWidget::~DeviceWidget() = default;

QString DeviceWidget::deviceTag() const
{
    return m_device ? m_device->getDeviceInfo(QStringLiteral("tag")).toString() : QString();
}

QString DeviceWidget::deviceID() const
{
    return m_device ? m_device->getDeviceInfo(QStringLiteral("deviceID")).toString() : QString();
}

void DeviceWidget::setDevice(Device* device)
{
    m_device = device;
}

bool DeviceWidget::isValid()
{
    bool valid = true;
    for (auto it = m_includedWidgets.cbegin(); it != m_includedWidgets.cend(); ++it) {
        if (it.key() != this && !it.key()->isValid())
            valid = false;
    }
    return valid;
}

void DeviceWidget::initWidget()
{
    for (auto it = m_includedWidgets.cbegin(); it != m_includedWidgets.cend(); ++it) {
        if (it.key() != this)
            it.key()->initWidget();
    }
}

void DeviceWidget::showDeviceInfoInFields()
{
    for (auto it = m_includedWidgets.cbegin(); it != m_includedWidgets.cend(); ++it) {
        if (it.key() != this)
            it.key()->showDeviceInfoInFields();
    }
}

void DeviceWidget::setChildWidget(DeviceWidget* child, const QString& caption)
{
    m_parentWidget = this;
    child->m_parentWidget = this;
    m_includedWidgets.insert(child, caption);
    connect(child, &DeviceWidget::init_progress_bar, this, &DeviceWidget::init_progress_bar);
    if (m_statusWidget) {
        connect(child, &DeviceWidget::init_progress_bar, m_statusWidget, &StatusWidget::onInitProgressBar);
        connect(child, &DeviceWidget::next_step, m_statusWidget, &StatusWidget::onNextStep);
        connect(child, &DeviceWidget::show_final_message, m_statusWidget, &StatusWidget::onShowFinalMessage);
    }
}

int DeviceWidget::setChildWidgetInTab(DeviceWidget* child, QTabWidget* tab, const QString& caption)
{
    if (!m_tabMainWidget)
        m_tabMainWidget = tab;
    const int index = tab->insertTab(tab->count(), child, caption);
    m_parentWidget = this;
    child->m_parentWidget = this;
    m_includedWidgets.insert(child, caption);
    m_tabWidgets.insert(child, caption);
    return index;
}

int DeviceWidget::setWidgetInTab(QWidget* page, QTabWidget* tab, const QString& caption)
{
    if (!m_tabMainWidget)
        m_tabMainWidget = tab;
    const int index = tab->insertTab(tab->count(), page, caption);
    m_tabWidgets.insert(page, caption);
    return index;
}

void DeviceWidget::retranslateTabWidget()
{
    if (!m_tabMainWidget)
        return;
    for (auto it = m_tabWidgets.cbegin(); it != m_tabWidgets.cend(); ++it) {
        const int index = m_tabMainWidget->indexOf(it.key());
        if (index < 0)
            continue;
        for (const char* caption : tabCaptions) {
            if (it.value() == QLatin1String(caption))
                m_tabMainWidget->setTabText(index, tr(caption));
        }
    }
}

void DeviceWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslateTabWidget();
    QWidget::changeEvent(event);
}

namespace {

// Fills the box under blocked signals and keeps its row where it can.
void fillComboBox(QComboBox* box, const std::function<void()>& fill)
{
    if (!box)
        return;
    const QSignalBlocker blocker(box);
    const bool hadItems = box->count() > 0;
    const int index = box->currentIndex();
    box->clear();
    fill();
    if (hadItems)
        box->setCurrentIndex(index < box->count() ? index : 0);
}

} // namespace

void DeviceWidget::loadComboBoxItems(const QStringList& items, QComboBox* box)
{
    fillComboBox(box, [&]() {
        for (int i = 0; i < items.size(); ++i)
            box->addItem(items.at(i), i);
    });
}

void DeviceWidget::loadComboBoxItemsWithItemData(const QVariantList& items, QComboBox* box)
{
    fillComboBox(box, [&]() {
        for (const QVariant& item : items) {
            const QVariantMap map = item.toMap();
            box->addItem(map.value(QStringLiteral("name")).toString(), map.value(QStringLiteral("id")));
        }
    });
}

void DeviceWidget::setFieldUsed(QWidget* field, bool used, QLabel* label)
{
    if (!field || field->isEnabled() == used)
        return;
    field->setEnabled(used);
    field->setVisible(used);
    if (label) {
        label->setEnabled(used);
        label->setVisible(used);
    }
    setFieldColorModified(field, m_bIsModifyBlocking ? false : used);
}

void DeviceWidget::showDeviceInfoInField(const QString& name, QWidget* field, bool watch)
{
    if (!field)
        return;
    m_bIsModifyBlocking = true;
    const QVariant value = m_device ? m_device->getDeviceInfo(name) : QVariant();
    const QString typeName = QString::fromLatin1(value.typeName());
    const bool isFloat = typeName == QLatin1String("float") || typeName == QLatin1String("double");
    // The first showing of a name binds it, and watches the field when asked.
    const bool bind = !m_inputFields.contains(name);
    auto bindOnce = [&](const std::function<void()>& watchField) {
        if (!bind)
            return;
        m_inputFields.insert(name, field);
        if (watch)
            watchField();
    };

    if (auto* box = qobject_cast<QComboBox*>(field)) {
        bindOnce([&]() {
            connect(box, &QComboBox::currentIndexChanged, this, &DeviceWidget::onComboBoxCurrentIndexChanged);
        });
        if (value.isValid() && !value.isNull())
            box->setCurrentIndex(box->findData(value.toInt(), Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
    } else if (auto* spin = qobject_cast<QSpinBox*>(field)) {
        bindOnce([&]() { connect(spin, &QSpinBox::valueChanged, this, &DeviceWidget::onSpnIntBoxValueChanged); });
        spin->setValue(value.toInt());
    } else if (auto* dspin = qobject_cast<QDoubleSpinBox*>(field)) {
        bindOnce(
            [&]() { connect(dspin, &QDoubleSpinBox::valueChanged, this, &DeviceWidget::onSpnDoubleBoxValueChanged); });
        if (isFloat)
            dspin->setValue(value.toFloat());
    } else if (auto* input = qobject_cast<UniBaseInput*>(field)) {
        bindOnce([&]() { connect(input, &QLineEdit::textChanged, this, &DeviceWidget::onTxtEditBoxTextChanged); });
        // Each test stands on its own: a "uint" holds "int" too, and its
        // own call is the one that stays.
        if (typeName == QLatin1String("QByteArray"))
            input->setText(hexText(value));
        if (typeName.contains(QLatin1String("int")))
            input->setIntValue(value.toInt());
        if (typeName.contains(QLatin1String("uint")))
            input->setUIntValue(value.toUInt());
        if (typeName.contains(QLatin1String("long"))) {
            // A 64-bit value is shown as the device holds it, even where
            // the field's 32-bit word cannot take it.
            const QSignalBlocker blocker(input);
            input->setText(QString::number(value.toLongLong()));
        }
        if (isFloat)
            input->setText(QString::number(value.toDouble(), 'f', 3));
        if (typeName == QLatin1String("QString"))
            input->setText(value.toString());
    } else if (auto* edit = qobject_cast<QLineEdit*>(field)) {
        bindOnce([&]() { connect(edit, &QLineEdit::textChanged, this, &DeviceWidget::onTxtEditBoxTextChanged); });
        if (typeName == QLatin1String("QByteArray"))
            edit->setText(hexText(value));
        else if (typeName == QLatin1String("QString"))
            edit->setText(value.toString());
        edit->setCursorPosition(0); // a long text shows its start
    } else if (auto* date = qobject_cast<QDateEdit*>(field)) {
        bindOnce([&]() { connect(date, &QDateEdit::dateChanged, this, &DeviceWidget::onDateEditBoxDateChanged); });
        date->setDate(value.toDate());
    } else if (auto* label = qobject_cast<QLabel*>(field)) {
        if (isFloat)
            label->setText(QStringLiteral("%1").arg(value.toDouble(), 0, 'g'));
    } else if (auto* check = qobject_cast<QCheckBox*>(field)) {
        // A type name beginning with "boolean" leaves the box alone; "bool"
        // itself does not begin so, and sets it.
        if (typeName.contains(QLatin1String("int")) || typeName.contains(QLatin1String("long")))
            check->setChecked(value.toLongLong() > 0);
        else if (!typeName.startsWith(QLatin1String("boolean")))
            check->setChecked(value.toBool());
    }
    setFieldColorModified(field, false);
    m_bIsModifyBlocking = false;
}

bool DeviceWidget::isFieldModified(const QWidget* field)
{
    return field && field->palette().color(QPalette::Active, QPalette::Text) == modifiedColour;
}

void DeviceWidget::setFieldColorModified(QWidget* field, bool modified)
{
    if (!field)
        return;
    QPalette palette = field->palette();
    const QBrush brush(modified ? modifiedColour : QColor(Qt::black), Qt::SolidPattern);
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setBrush(group, QPalette::Text, brush);
        // A closed combo box draws its row with the button's text colour.
        if (qobject_cast<QComboBox*>(field))
            palette.setBrush(group, QPalette::ButtonText, brush);
    }
    field->setPalette(palette);
    if (m_device && modified && !m_bIsModifyBlocking)
        emit changed();
}

void DeviceWidget::onWidgetStateChanged()
{
    setFieldColorModified(qobject_cast<QWidget*>(sender()), !m_bIsModifyBlocking);
}

void DeviceWidget::onComboBoxCurrentIndexChanged(int)
{
    onWidgetStateChanged();
}

void DeviceWidget::onSpnIntBoxValueChanged(int)
{
    onWidgetStateChanged();
}

void DeviceWidget::onSpnDoubleBoxValueChanged(double)
{
    onWidgetStateChanged();
}

void DeviceWidget::onTxtEditBoxTextChanged(const QString&)
{
    onWidgetStateChanged();
}

void DeviceWidget::onDateEditBoxDateChanged(const QDate&)
{
    onWidgetStateChanged();
}

DeviceWidget* DeviceWidget::transactionOwner() const
{
    return m_parentWidget ? m_parentWidget : const_cast<DeviceWidget*>(this);
}

bool DeviceWidget::isActiveTransaction() const
{
    return transactionOwner()->m_activeTransaction;
}

bool DeviceWidget::initProgressBar(const QString& title, int steps)
{
    DeviceWidget* owner = transactionOwner();
    if (owner->m_activeTransaction) {
        DBG(LevelInfo) << "transaction refused, another one runs:" << title;
        return false;
    }
    owner->m_activeTransaction = true;
    if (m_device)
        m_device->resetState();
    emit init_progress_bar(title, steps);
    return true;
}

void DeviceWidget::nextStep()
{
    emit next_step();
}

void DeviceWidget::showFinalMessage(int steps)
{
    emit show_final_message(steps);
    transactionOwner()->m_activeTransaction = false;
    if (!m_device)
        return;
    if (m_device->errorCount() > 0)
        emit changed();
    Port* port = m_device->port();
    if (port && port->closePortAfterTransaction())
        port->closeHart();
}

bool DeviceWidget::runExchange(const std::function<bool()>& call)
{
    if (!m_device)
        return false;
    bool ok = false;
    runWhileEventLoopTurns([&]() { ok = call(); });
    return ok;
}

bool DeviceWidget::readDevice(int cmd)
{
    Device* device = m_device.data();
    return runExchange([device, cmd]() { return device->readDevice(cmd); });
}

bool DeviceWidget::writeDevice(int cmd)
{
    Device* device = m_device.data();
    return runExchange([device, cmd]() { return device->writeDevice(cmd); });
}
