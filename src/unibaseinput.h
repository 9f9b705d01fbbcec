#ifndef UNIBASEINPUT_H
#define UNIBASEINPUT_H

#include <QLineEdit>
#include <QVariant>

// One 32-bit word seen as a signed or unsigned integer or as a float.
union FloatInt {
    qint32 i;
    quint32 u;
    float f;
};

// A line edit for a number. It takes a decimal ("101", "-7"), hexadecimal
// ("0x1F", "1Fh"), binary ("101b") or float ("1.5", with a point or a comma)
// text and shows the value back in the base in use. Ctrl with a left double
// click cycles an integer through hexadecimal, signed and unsigned decimal.
class UniBaseInput : public QLineEdit
{
    Q_OBJECT

public:
    explicit UniBaseInput(QWidget* parent = nullptr);

    int intValue() const { return m_value.i; }
    unsigned int uintValue() const { return m_value.u; }
    float floatValue() const { return m_value.f; }
    bool isIntValueValid() const { return m_intValueValid; }
    bool isFloatValueValid() const { return m_floatValueValid; }

    void setIntValue(int value);
    void setUIntValue(unsigned int value);
    void setFloatValue(float value);

    void setBase(int base);
    int base() const { return m_currentBase; }
    // Returns the former setting.
    bool setIntSign(bool sign);
    bool intSign() const { return m_intSign; }

signals:
    void valueChanged(const QVariant& value);
    void valueChanged(int value);

public slots:
    // Reads the text: float, decimal, hexadecimal, binary, in that order.
    void updateValue();
    // Shows the value in the base in use.
    void updateText();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool m_intSign = false;
    QString m_prevText;
    FloatInt m_value;
    int m_currentBase = 16;
    QChar m_decimalDelimiter;
    bool m_floatValueValid = false;
    bool m_intValueValid = false;
};

#endif // UNIBASEINPUT_H
