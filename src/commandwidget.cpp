#include "commandwidget.h"
#include "ui_commandwidget.h"

#include "debugqt.h"
#include "device.h"
#include "devicewidget.h"
#include "port.h"
#include "utils.h"

#include <QLocale>
#include <QMessageBox>
#include <QSignalBlocker>

#include <algorithm>
#include <climits>

namespace {

// A byte goes in while the buffer holds at most this many, and so do the
// texts; a float or an integer while it holds at most FieldLimit.
const int ByteLimit = 63;
const int FieldLimit = 60;

// The bytes a selection of characters touches in a field that shows bytes
// as "0A FF 12", byte i at the characters 3i and 3i + 1. A selection of
// blanks only touches none and gives the place between two bytes.
void selectedBytes(int start, int length, int* first, int* count)
{
    *first = (start + 1) / 3;
    *count = qMax(0, (start + length - 1) / 3 - *first + 1);
}

QString bytesText(const QByteArray& bytes)
{
    return byteBufferToString(bytes.constData(), int(bytes.size()));
}

// Digits "0" to "9" only: a number of the mask is read by toInt.
bool isDecimalDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// A number too long for an int lies beyond any answer.
int maskNumber(const QString& digits)
{
    bool ok = false;
    const int value = digits.toInt(&ok);
    return ok ? value : INT_MAX;
}

} // namespace

CommandWidget::CommandWidget(DeviceWidget* owner, QWidget* parent)
    : QWidget(parent), ui(new Ui::CommandWidget), m_owner(owner)
{
    ui->setupUi(this);
    ui->txtByte->setIntValue(0);
    on_dspnValue_valueChanged(ui->dspnValue->value());
    updateBuffer();
    loadCommandsContext();
    // A number typed in the box shows what the device calls it, or nothing.
    connect(ui->spnCmd, &QSpinBox::valueChanged, this, [this](int cmd) {
        const QSignalBlocker blocker(ui->cmbCmdContext);
        ui->cmbCmdContext->setCurrentIndex(ui->cmbCmdContext->findData(cmd));
    });
}

CommandWidget::~CommandWidget()
{
    delete ui;
}

Port* CommandWidget::devicePort() const
{
    return m_device ? m_device->port() : nullptr;
}

void CommandWidget::onDeviceChanged(Device* device)
{
    m_device = device;
    loadCommandsContext();
    onResetWidget();
}

void CommandWidget::onUpdateButtons(bool on)
{
    ui->btnSendCustomCmd->setEnabled(on);
}

void CommandWidget::onResetWidget()
{
    m_answer.clear();
    ui->txtRequest->clear();
    ui->txtAnswer->clear();
    ui->txtResult->clear();
    ui->lblMessage->clear();
}

void CommandWidget::loadCommandsContext()
{
    const QSignalBlocker blocker(ui->cmbCmdContext);
    ui->cmbCmdContext->clear();
    if (!m_device)
        return;
    for (int cmd = 0; cmd <= 255; ++cmd) {
        QString context = m_device->readFunContext(cmd);
        if (context.isEmpty())
            context = m_device->writeFunContext(cmd);
        if (!context.isEmpty())
            ui->cmbCmdContext->addItem(QStringLiteral("%1 - %2").arg(cmd).arg(context), cmd);
    }
    ui->cmbCmdContext->setCurrentIndex(ui->cmbCmdContext->findData(ui->spnCmd->value()));
}

void CommandWidget::on_cmbCmdContext_currentIndexChanged(int index)
{
    if (index >= 0)
        ui->spnCmd->setValue(ui->cmbCmdContext->itemData(index).toInt());
}

void CommandWidget::on_btnSendCustomCmd_clicked()
{
    Device* device = m_device;
    if (!device || !m_owner)
        return;
    const int cmd = ui->spnCmd->value();
    if (!m_owner->initProgressBar(tr("Custom command %1").arg(cmd), 1))
        return;
    onResetWidget();

    const QString readLabel = device->readFunContext(cmd);
    const QString writeLabel = device->writeFunContext(cmd);
    const QString customLabel = QStringLiteral("### custom command ### ") + QString::number(cmd);
    const bool forced = ui->chkForceCustom->isChecked();
    const QByteArray request = m_buffer;
    QByteArray sent;
    QByteArray response;
    const bool ok = m_owner->runExchange([&] {
        if (!forced && !readLabel.isEmpty())
            return device->read(readLabel, cmd, response) == 1;
        sent = request;
        if (!forced && !writeLabel.isEmpty())
            return device->write(writeLabel, cmd, sent, response) == 1;
        if (sent.isEmpty())
            return device->read(customLabel, cmd, response) == 1;
        return device->write(customLabel, cmd, sent, response) == 1;
    });
    m_answer = response;
    ui->txtRequest->setText(bytesText(sent));
    ui->txtAnswer->setText(bytesText(m_answer));
    if (ok)
        m_owner->nextStep();
    m_owner->showFinalMessage(0);
}

void CommandWidget::updateBuffer()
{
    ui->txtCmd->setText(bytesText(m_buffer).toUpper());
    ui->lblBufferSize->setText(tr("%1 bytes").arg(m_buffer.size()));
    m_selectionStart = 0;
    m_selectionLength = 0;
}

void CommandWidget::insertInBuffer(const QByteArray& value, int limit)
{
    if (value.isEmpty() || m_buffer.size() > limit)
        return;
    if (m_selectionStart == 0 && m_selectionLength == 0) {
        m_buffer.append(value);
    } else {
        const int start = qMin(m_selectionStart, int(m_buffer.size()));
        m_buffer.remove(start, m_selectionLength);
        m_buffer.insert(start, value);
    }
    updateBuffer();
}

void CommandWidget::on_txtCmd_selectionChanged()
{
    if (!ui->txtCmd->hasSelectedText()) {
        m_selectionStart = 0;
        m_selectionLength = 0;
        return;
    }
    selectedBytes(ui->txtCmd->selectionStart(), ui->txtCmd->selectionLength(), &m_selectionStart, &m_selectionLength);
}

// Tells where the selected answer bytes lie, for writing a mask.
void CommandWidget::on_txtAnswer_selectionChanged()
{
    if (!ui->txtAnswer->hasSelectedText()) {
        ui->lblAnswerSelection->clear();
        return;
    }
    int first = 0;
    int count = 0;
    selectedBytes(ui->txtAnswer->selectionStart(), ui->txtAnswer->selectionLength(), &first, &count);
    ui->lblAnswerSelection->setText(tr("Offset %1, length %2").arg(first).arg(count));
}

// Plus and minus step the byte field, so a byte can be tried value by value.
void CommandWidget::stepByte(int step)
{
    ui->txtByte->setIntValue((ui->txtByte->intValue() + step) & 0xFF);
}

void CommandWidget::on_btnPlus_clicked()
{
    stepByte(1);
}

void CommandWidget::on_btnMinus_clicked()
{
    stepByte(-1);
}

// The low byte of the field's value: -1 is 0xFF.
void CommandWidget::on_btnAddByte_clicked()
{
    if (ui->txtByte->isIntValueValid())
        insertInBuffer(QByteArray(1, char(ui->txtByte->intValue() & 0xFF)), ByteLimit);
}

void CommandWidget::on_btnAddFloat_clicked()
{
    insertInBuffer(Port::getBufferFromFloat(float(ui->dspnValue->value())), FieldLimit);
}

void CommandWidget::on_btnAddInt_clicked()
{
    const QString text = ui->txtInt->text().trimmed();
    bool ok = !text.contains(QLocale().decimalPoint());
    // Decimal, or hexadecimal after "0x"; four bytes hold any unsigned value too.
    const bool hex = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const qlonglong value = !ok ? 0 : hex ? text.mid(2).toLongLong(&ok, 16) : text.toLongLong(&ok, 10);
    if (!ok || value < INT_MIN || value > qlonglong(UINT_MAX)) {
        QMessageBox::warning(this, tr("Int value"), tr("You must enter an integer value!"));
        return;
    }
    insertInBuffer(Port::getBufferFromInt(int(quint32(value)), ui->spnIntSize->value()), FieldLimit);
}

void CommandWidget::on_btnAddText_clicked()
{
    Port* port = devicePort();
    if (!port)
        return;
    // Packed text goes in groups of four characters.
    QString text = ui->txtText->text();
    if (text.size() % 4)
        text += QString(4 - text.size() % 4, QLatin1Char(' '));
    insertInBuffer(port->packAscii(text, int(text.size())), ByteLimit);
}

void CommandWidget::on_btnAddLatin1Text_clicked()
{
    insertInBuffer(ui->txtText->text().toLatin1(), ByteLimit);
}

void CommandWidget::on_btnGetFloat_clicked()
{
    ui->dspnValue->setValue(Port::getFloatFromBufferByOffset(m_buffer, ui->spnOffset->value()));
}

void CommandWidget::on_btnGetInt_clicked()
{
    const int value = Port::getIntFromBufferByOffset(m_buffer, ui->spnOffset->value(), ui->spnIntSize->value());
    ui->txtInt->setText(QString::number(value));
}

void CommandWidget::on_dspnValue_valueChanged(double value)
{
    ui->lblFloatBytes->setText(bytesText(Port::getBufferFromFloat(float(value))).toUpper());
}

// The packed text from the offset to the end of the buffer.
void CommandWidget::on_btnGetText_clicked()
{
    if (Port* port = devicePort()) {
        const QByteArray packed = m_buffer.mid(ui->spnOffset->value());
        ui->txtText->setText(port->unpackAscii(packed, int(packed.size())));
    }
}

void CommandWidget::on_btnClearBuffer_clicked()
{
    m_buffer.clear();
    updateBuffer();
}

void CommandWidget::setMaskFieldColor(bool error)
{
    // A light red ground marks a mask with a bad token; the style's own otherwise.
    ui->txtMask->setStyleSheet(error ? QStringLiteral("QLineEdit { background-color: #ffc8c8; }") : QString());
}

QString CommandWidget::parseMask(const QString& mask, const QByteArray& answer, Port* port, QString* error)
{
    QString ignored;
    if (!error)
        error = &ignored;
    error->clear();
    QString result;
    qint64 offset = 0;
    const QStringList tokens = mask.split(QLatin1Char(' '), Qt::KeepEmptyParts);
    for (const QString& part : tokens) {
        const QString token = part.trimmed();
        if (token.isEmpty())
            continue;
        int pos = 0;
        while (pos < token.size() && isDecimalDigit(token.at(pos)))
            ++pos;
        const QString offsetDigits = token.left(pos);
        if (pos == token.size() || !token.at(pos).isLetter()) {
            *error = tr("Invalid type char");
            continue;
        }
        const QChar type = token.at(pos).toLower();
        const QString lengthDigits = token.mid(pos + 1);
        if (!std::all_of(lengthDigits.cbegin(), lengthDigits.cend(), isDecimalDigit)) {
            *error = tr("Invalid lenght char");
            continue;
        }
        if (!offsetDigits.isEmpty())
            offset = maskNumber(offsetDigits);
        int length = lengthDigits.isEmpty() ? 0 : maskNumber(lengthDigits);

        if (type == QLatin1Char('b')) {
            result += QString::number(offset < answer.size() ? quint8(answer.at(offset)) : 0);
            length = 1;
        } else if (type == QLatin1Char('i') || type == QLatin1Char('f') || type == QLatin1Char('t')) {
            if (type == QLatin1Char('i') && length == 0)
                length = 3;
            if (type == QLatin1Char('f'))
                length = 4;
            if (length == 0) {
                *error = tr("Invalid text lenght");
                continue;
            }
            // Bytes past the end of the answer are not there to read.
            if (offset + length > answer.size()) {
                *error = tr("Beyond the end of the answer");
                continue;
            }
            if (type == QLatin1Char('i')) {
                // HART integers are unsigned.
                result += QString::number(quint32(Port::getIntFromBufferByOffset(answer, int(offset), length)));
            } else if (type == QLatin1Char('f')) {
                result += QString::number(Port::getFloatFromBufferByOffset(answer, int(offset)), 'g', 7);
            } else if (port) {
                result += port->unpackAscii(answer.mid(offset, length), length);
            }
        } else {
            *error = tr("Invalid type char");
            continue;
        }
        result += QStringLiteral(" | ");
        offset += length;
    }
    return result;
}

void CommandWidget::on_btnParsing_clicked()
{
    ui->txtResult->clear();
    ui->lblMessage->clear();
    setMaskFieldColor(false);
    QString error;
    ui->txtResult->setText(parseMask(ui->txtMask->text(), m_answer, devicePort(), &error));
    ui->lblMessage->setText(error);
    setMaskFieldColor(!error.isEmpty());
}

void CommandWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        // The command names and the size label are texts of this program too.
        loadCommandsContext();
        updateBuffer();
        on_txtAnswer_selectionChanged();
    }
    QWidget::changeEvent(event);
}
