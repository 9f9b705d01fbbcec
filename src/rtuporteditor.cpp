#include "rtuporteditor.h"
#include "ui_rtuporteditor.h"

#include "debugqt.h"
#include "port.h"
#include "serveritem.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalBlocker>

namespace {

// The start preamble count that a value below 1 stands for.
const int DefaultStartPreambles = 10;

} // namespace

RTUPortEditor::RTUPortEditor(QWidget* parent) : QWidget(parent), ui(new Ui::RTUPortEditor)
{
    ui->setupUi(this);
    fillLineBoxes();

    // A device chosen from the list, and a path typed and confirmed. Return
    // on a listed name also changes the index first; the second call then
    // finds the name already taken and does nothing.
    connect(ui->portChoiceComboBox, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0)
            on_portChoiceComboBox_currentIndexChanged(ui->portChoiceComboBox->itemData(index).toString());
    });
    connect(ui->portChoiceComboBox->lineEdit(), &QLineEdit::editingFinished, this,
            [this]() { on_portChoiceComboBox_currentIndexChanged(ui->portChoiceComboBox->currentText().trimmed()); });
}

RTUPortEditor::~RTUPortEditor()
{
    delete ui;
}

void RTUPortEditor::fillLineBoxes()
{
    // The line always runs at 1200 baud 8O1: one entry each, so the setting
    // is shown and cannot be chosen otherwise.
    const QSignalBlocker b1(ui->baudrateComboBox);
    const QSignalBlocker b2(ui->databitsComboBox);
    const QSignalBlocker b3(ui->parityComboBox);
    const QSignalBlocker b4(ui->stopbitsComboBox);
    ui->baudrateComboBox->clear();
    ui->baudrateComboBox->addItem(QStringLiteral("1200"), 1200);
    ui->databitsComboBox->clear();
    ui->databitsComboBox->addItem(QStringLiteral("8"), 8);
    ui->parityComboBox->clear();
    ui->parityComboBox->addItem(tr("odd"), QStringLiteral("O"));
    ui->stopbitsComboBox->clear();
    ui->stopbitsComboBox->addItem(QStringLiteral("1"), 1);
}

void RTUPortEditor::setItem(ServerItem* item)
{
    m_port = item && item->type() == ServerItem::TypePort ? static_cast<Port*>(item) : nullptr;
    // The list keeps the text shown when it is refreshed: show the new port's
    // name first, so that the previous port's name is not offered to this one.
    {
        const QSignalBlocker blocker(ui->portChoiceComboBox);
        ui->portChoiceComboBox->setCurrentIndex(-1);
        ui->portChoiceComboBox->setEditText(m_port ? m_port->serialName() : QString());
    }
    update_serials();
    if (!m_port)
        return;
    showPortValues();
    DBG(LevelInfo) << "port search:" << ui->portChoiceComboBox->findData(m_port->serialName());
    updateButtons();
}

Port* RTUPortEditor::port() const
{
    return m_port;
}

void RTUPortEditor::showPortValues()
{
    showSerialName();
    const auto select = [](QComboBox* box, const QVariant& value) {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(box->findData(value));
    };
    select(ui->baudrateComboBox, m_port->baudrate());
    select(ui->databitsComboBox, m_port->dataBits());
    select(ui->parityComboBox, QString(m_port->parity()));
    select(ui->stopbitsComboBox, m_port->stopBits());

    HartPort& hart = m_port->hart();
    showValue(ui->spnRequestTimeout, hart.requestTimeout());
    showValue(ui->spnResponseTimeout, hart.responseTimeout());
    showValue(ui->spnByteTimeout, hart.byteTimeout());
    showValue(ui->spnStartPreamblesCount, hart.startPreambles());

    const QSignalBlocker blocker(ui->chkTransactionClosePort);
    ui->chkTransactionClosePort->setChecked(m_port->closePortAfterTransaction());
}

void RTUPortEditor::showSerialName()
{
    if (!m_port)
        return;
    QComboBox* box = ui->portChoiceComboBox;
    const QSignalBlocker blocker(box);
    const QString name = m_port->serialName();
    const int index = box->findData(name);
    box->setCurrentIndex(index);
    // Not in the list: an empty selection, and the stored name stays visible.
    if (index < 0)
        box->setEditText(name);
}

void RTUPortEditor::showValue(QSpinBox* box, int value)
{
    const QSignalBlocker blocker(box);
    box->setValue(value);
}

void RTUPortEditor::setStatus(const QString& html)
{
    ui->lbStatus->setText(html);
}

void RTUPortEditor::updateButtons()
{
    if (!m_port)
        return;
    const bool free = !m_port->hasPeriodicallyRequestedDevices();
    ui->portChoiceComboBox->setEnabled(free);
    ui->btnRefresh->setEnabled(free);
    ui->b_check->setEnabled(free);
}

void RTUPortEditor::update_serials()
{
    // Sorted, each name once.
    const QStringList names = Port::devices_available();
    QComboBox* box = ui->portChoiceComboBox;
    const QString shown = box->currentText();

    const QSignalBlocker blocker(box);
    box->clear();
    for (const QString& name : names)
        box->addItem(name, name);
    setStatus(QString());

    const int index = box->findData(shown);
    if (index >= 0) {
        box->setCurrentIndex(index);
        on_portChoiceComboBox_currentIndexChanged(shown);
    } else {
        box->setCurrentIndex(-1);
        box->setEditText(m_port ? m_port->serialName() : shown);
    }
}

void RTUPortEditor::on_portChoiceComboBox_currentIndexChanged(const QString& name)
{
    if (!m_port || m_takingName)
        return;
    if (name == m_port->serialName()) {
        ui->b_check->setEnabled(!m_port->hasPeriodicallyRequestedDevices());
        return;
    }
    if (name.isEmpty()) {
        // A cleared field names no device: show the port's own again.
        showSerialName();
        return;
    }

    m_takingName = true;
    if (!m_port->setSerialName(name)) {
        QMessageBox::warning(this, tr("Port configuration"), tr("Port %1 already exists!").arg(name));
        showSerialName();
    } else {
        DBG(LevelInfo) << "port" << m_port->name() << "serial device:" << name;
        emit changed();
        setStatus(QString());
    }
    m_takingName = false;
}

void RTUPortEditor::on_baudrateComboBox_currentIndexChanged(int index)
{
    if (!m_port || index < 0)
        return;
    m_port->setBaudrate(ui->baudrateComboBox->itemData(index).toInt());
    emit changed();
}

void RTUPortEditor::on_databitsComboBox_currentIndexChanged(int index)
{
    if (!m_port || index < 0)
        return;
    m_port->setDatabits(ui->databitsComboBox->itemData(index).toInt());
    emit changed();
}

void RTUPortEditor::on_parityComboBox_currentIndexChanged(int index)
{
    if (!m_port || index < 0)
        return;
    const QString parity = ui->parityComboBox->itemData(index).toString();
    if (parity.isEmpty())
        return;
    m_port->setParity(parity.at(0));
    emit changed();
}

void RTUPortEditor::on_stopbitsComboBox_currentIndexChanged(int index)
{
    if (!m_port || index < 0)
        return;
    m_port->setStopbits(ui->stopbitsComboBox->itemData(index).toInt());
    emit changed();
}

void RTUPortEditor::on_b_check_clicked()
{
    if (!m_port)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // Only an attempt to open the line: no frame goes out.
    if (m_port->isOpened())
        m_port->closeHart();
    if (!m_port->openHart()) {
        setStatus(tr("<p style=\"color: red;\">Failure: %1.</p>").arg(m_port->errorText().toHtmlEscaped()));
    } else {
        setStatus(tr("<p style=\"color: green;\">Success.</p>"));
        m_port->closeHart();
    }
    QApplication::restoreOverrideCursor();
}

// A value below 1 in any of these stands for the default, which the box then
// shows instead.
void RTUPortEditor::on_spnRequestTimeout_valueChanged(int value)
{
    if (!m_port)
        return;
    m_port->hart().setRequestTimeout(value);
    showValue(ui->spnRequestTimeout, m_port->hart().requestTimeout());
    emit changed();
}

void RTUPortEditor::on_spnResponseTimeout_valueChanged(int value)
{
    if (!m_port)
        return;
    m_port->hart().setResponseTimeout(value);
    showValue(ui->spnResponseTimeout, m_port->hart().responseTimeout());
    emit changed();
}

void RTUPortEditor::on_spnByteTimeout_valueChanged(int value)
{
    if (!m_port)
        return;
    m_port->hart().setByteTimeout(value);
    showValue(ui->spnByteTimeout, m_port->hart().byteTimeout());
    emit changed();
}

void RTUPortEditor::on_spnStartPreamblesCount_valueChanged(int value)
{
    if (!m_port)
        return;
    m_port->hart().setStartPreambles(value < 1 ? DefaultStartPreambles : value);
    showValue(ui->spnStartPreamblesCount, m_port->hart().startPreambles());
    emit changed();
}

void RTUPortEditor::on_chkTransactionClosePort_stateChanged(int state)
{
    if (!m_port)
        return;
    m_port->setClosePortAfterTransaction(state == Qt::Checked);
    m_port->closeHart();
    emit changed();
}

void RTUPortEditor::on_btnRefresh_clicked()
{
    DBG(LevelInfo) << "refresh the list of serial devices";
    update_serials();
}

void RTUPortEditor::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        const QSignalBlocker blocker(ui->parityComboBox);
        ui->parityComboBox->setItemText(0, tr("odd"));
    }
    QWidget::changeEvent(event);
}
