#include "unibaseinput.h"

#include "debugqt.h"

#include <QLocale>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>

namespace {

bool matchesExactly(const QString& pattern, const QString& text)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

} // namespace

UniBaseInput::UniBaseInput(QWidget* parent) : QLineEdit(parent)
{
    m_value.u = 0;
    m_currentBase = 10;
    m_decimalDelimiter = QLocale().decimalPoint().at(0);
    const QString pattern = QStringLiteral("(0[xX][0-9a-fA-F]+)|([0-9a-fA-F]+[hH])|((0|1)+[bB])|([+-]?[0-9]+)|"
                                           "([+-]?[0-9]+%1[0-9]+)|")
                                .arg(QRegularExpression::escape(QString(m_decimalDelimiter)));
    setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), this));
    connect(this, &QLineEdit::textChanged, this, &UniBaseInput::updateValue);
}

void UniBaseInput::setIntValue(int value)
{
    m_intSign = value < 0;
    m_prevText.clear();
    m_value.i = value;
    m_intValueValid = true;
    m_floatValueValid = false;
    updateText();
}

void UniBaseInput::setUIntValue(unsigned int value)
{
    m_intSign = false;
    m_prevText.clear();
    m_value.u = value;
    m_intValueValid = true;
    m_floatValueValid = false;
    updateText();
}

void UniBaseInput::setFloatValue(float value)
{
    m_prevText.clear();
    m_value.f = value;
    m_intValueValid = false;
    m_floatValueValid = true;
    updateText();
}

void UniBaseInput::setBase(int base)
{
    if (base != 2 && base != 8 && base != 10 && base != 16)
        return;
    m_currentBase = base;
    updateText();
}

bool UniBaseInput::setIntSign(bool sign)
{
    const bool former = m_intSign;
    m_intSign = sign;
    updateText();
    return former;
}

void UniBaseInput::updateValue()
{
    QString value = text();
    if (m_decimalDelimiter != QLatin1Char('.'))
        value.replace(QLatin1Char('.'), m_decimalDelimiter);
    if (m_decimalDelimiter != QLatin1Char(','))
        value.replace(QLatin1Char(','), m_decimalDelimiter);

    bool ok = false;
    if (value.contains(m_decimalDelimiter)) {
        DBG(LevelInfo) << "float value" << value;
        const double number = QLocale().toDouble(value, &ok);
        if (ok) {
            m_value.f = float(number);
            m_floatValueValid = true;
            m_intValueValid = false;
        }
    } else if (matchesExactly(QStringLiteral("[+-]?[0-9]+"), value)) {
        DBG(LevelInfo) << "dec value" << value;
        const qlonglong number = value.toLongLong(&ok, 10);
        ok = ok && number >= qlonglong(INT_MIN) && number <= qlonglong(UINT_MAX);
        if (ok) {
            m_intSign = number < 0;
            if (m_intSign)
                m_value.i = int(number);
            else
                m_value.u = uint(number);
        }
    } else if (matchesExactly(QStringLiteral("0x([0-9a-fA-F]*)|([0-9a-fA-F]+[hH])"), value)) {
        DBG(LevelInfo) << "hex value" << value;
        value.remove(QRegularExpression(QStringLiteral("[hH]")));
        m_value.u = value.toUInt(&ok, 16);
        if (!ok && value.compare(QLatin1String("0x"), Qt::CaseInsensitive) == 0) {
            // "0x" alone is the start of a hexadecimal number.
            m_value.u = 0;
            ok = true;
        }
    } else if (matchesExactly(QStringLiteral("(0|1)*[bB]"), value)) {
        DBG(LevelInfo) << "bin value" << value;
        value.remove(QRegularExpression(QStringLiteral("[bB]")));
        m_value.u = value.isEmpty() ? 0 : value.toUInt(&ok, 2);
        ok = ok || value.isEmpty();
    } else if (matchesExactly(QStringLiteral("[+-]"), value) || value.isEmpty()) {
        // A lone sign is the start of a number; the value waits for it.
        m_prevText = text();
        return;
    } else {
        DBG(LevelInfo) << "### mimo" << value;
        const QSignalBlocker blocker(this);
        setText(m_prevText);
        return;
    }

    if (!ok) {
        DBG(LevelInfo) << "### mimo" << value;
        const QSignalBlocker blocker(this);
        setText(m_prevText);
        return;
    }
    if (!value.contains(m_decimalDelimiter)) {
        m_intValueValid = true;
        m_floatValueValid = false;
    }
    m_prevText = text();
    emit valueChanged(int(m_value.i));
    emit valueChanged(m_floatValueValid ? QVariant(m_value.f) : QVariant(m_value.i));
}

void UniBaseInput::updateText()
{
    const QSignalBlocker blocker(this);
    QString shown;
    if (m_floatValueValid) {
        shown = QString::number(m_value.f, 'g');
    } else if (m_intValueValid) {
        switch (m_currentBase) {
        case 2:
            shown = QString::number(m_value.u, 2) + QLatin1Char('b');
            break;
        case 8:
            shown = QString::number(m_value.u, 8) + QLatin1Char('o');
            break;
        case 10:
            shown = m_intSign ? QStringLiteral("%1").arg(m_value.i) : QStringLiteral("%1").arg(m_value.u);
            break;
        default:
            shown = QStringLiteral("0x") + QString::number(m_value.u, 16).toUpper();
            break;
        }
    } else {
        return;
    }
    setText(shown);
    m_prevText = shown;
}

void UniBaseInput::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !(event->modifiers() & Qt::ControlModifier) || !m_intValueValid) {
        QLineEdit::mouseDoubleClickEvent(event);
        return;
    }
    if (m_currentBase == 16) {
        m_currentBase = 10;
        m_intSign = true;
    } else if (m_currentBase == 10 && m_intSign) {
        m_intSign = false;
    } else {
        m_currentBase = 16;
    }
    updateText();
}
