#include "smallsymbolvalidator.h"

#include <QLineEdit>
#include <QRegularExpression>

SmallSymbolValidator::SmallSymbolValidator(QLineEdit* field) : QValidator(field), m_field(field)
{}

QValidator::State SmallSymbolValidator::validate(QString& input, int& pos) const
{
    Q_UNUSED(pos)
    static const QRegularExpression packable(QStringLiteral(R"(^[A-Z0-9,.!?@#$%^&*()_+-=\]\[{}<>;:\'/\\ ]*$)"));
    input = input.toUpper();
    if (packable.match(input).hasMatch()) {
        paint(Qt::white);
        return Acceptable;
    }
    paint(Qt::magenta);
    return Invalid;
}

void SmallSymbolValidator::paint(const QColor& colour) const
{
    if (!m_field)
        return;
    QPalette palette = m_field->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Window, colour);
        // A line edit paints its background with the base colour.
        palette.setColor(group, QPalette::Base, colour);
    }
    m_field->setPalette(palette);
}
