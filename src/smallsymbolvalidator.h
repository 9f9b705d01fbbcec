#ifndef SMALLSYMBOLVALIDATOR_H
#define SMALLSYMBOLVALIDATOR_H

#include <QPointer>
#include <QValidator>

class QLineEdit;

// Keeps a field to what packed ASCII can carry: the input is turned to upper
// case as it is typed, and a character outside that set is refused with the
// field turning magenta until the text is good again.
class SmallSymbolValidator : public QValidator
{
    Q_OBJECT

public:
    explicit SmallSymbolValidator(QLineEdit* field);

    State validate(QString& input, int& pos) const override;

private:
    void paint(const QColor& colour) const;

    QPointer<QLineEdit> m_field;
};

#endif // SMALLSYMBOLVALIDATOR_H
