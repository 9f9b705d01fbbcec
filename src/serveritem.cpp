#include "serveritem.h"

#include "debugqt.h"

#include <QRegularExpression>

ServerItem::ServerItem(ServerItem* parent) : QObject(nullptr), m_title(tr("Ports & Devices")), m_parent(parent)
{
    // Children are owned through the list, not through QObject parentship:
    // the order of the list is the order of the tree.
    setProperty("enabled", true);
}

ServerItem::~ServerItem()
{
    qDeleteAll(m_children);
}

ServerItem* ServerItem::child(int index) const
{
    return index >= 0 && index < m_children.size() ? m_children.at(index) : nullptr;
}

int ServerItem::childNumber() const
{
    return m_parent ? int(m_parent->m_children.indexOf(const_cast<ServerItem*>(this))) : -1;
}

void ServerItem::insertChild(int position, ServerItem* child)
{
    if (!child)
        return;
    child->m_parent = this;
    if (position < 0 || position > m_children.size())
        position = int(m_children.size());
    m_children.insert(position, child);
    m_childrenByName.insert(child->name(), child);
}

ServerItem* ServerItem::takeChild(ServerItem* child)
{
    if (!m_children.removeOne(child))
        return nullptr;
    if (m_childrenByName.value(child->name()) == child)
        m_childrenByName.remove(child->name());
    return child;
}

bool ServerItem::insertChildren(int position, int count)
{
    if (position < 0 || position > m_children.size())
        return false;
    for (int k = 0; k < count; ++k) {
        ServerItem* item = createChild();
        if (!item)
            return false;
        // createChild may have entered it already (a port or device appends
        // itself under its unique name): put it where it was asked for.
        takeChild(item);
        insertChild(position, item);
    }
    return true;
}

bool ServerItem::removeChildren(int position, int count)
{
    if (position < 0 || position + count > m_children.size())
        return false;
    for (int k = 0; k < count; ++k) {
        ServerItem* item = m_children.takeAt(position);
        if (m_childrenByName.value(item->name()) == item)
            m_childrenByName.remove(item->name());
        delete item;
    }
    return true;
}

void ServerItem::removeChildren()
{
    removeChildren(0, childCount());
}

bool ServerItem::canMoveUp(ServerItem* child) const
{
    return m_children.indexOf(child) > 0;
}

bool ServerItem::canMoveDown(ServerItem* child) const
{
    const qsizetype index = m_children.indexOf(child);
    return index >= 0 && index < m_children.size() - 1;
}

void ServerItem::moveChildUp(ServerItem* child)
{
    if (canMoveUp(child)) {
        const qsizetype index = m_children.indexOf(child);
        m_children.swapItemsAt(index, index - 1);
    }
}

void ServerItem::moveChildDown(ServerItem* child)
{
    if (canMoveDown(child)) {
        const qsizetype index = m_children.indexOf(child);
        m_children.swapItemsAt(index, index + 1);
    }
}

QString ServerItem::validName(const QString& name)
{
    static const QRegularExpression blanks(QStringLiteral("(\\s|\\\\)+"));
    QString cleaned = name;
    return cleaned.replace(blanks, QStringLiteral("_"));
}

bool ServerItem::isNameValid(const QString& name) const
{
    if (!m_parent)
        return true;
    const ServerItem* holder = m_parent->m_childrenByName.value(name, nullptr);
    return !holder || holder == this;
}

QString ServerItem::createUniqName(const QString& pattern) const
{
    if (!m_parent)
        return pattern;
    QString candidate;
    do {
        const int number = m_parent->m_nameCounters.value(pattern, 0) + 1;
        m_parent->m_nameCounters.insert(pattern, number);
        candidate = pattern.arg(number);
    } while (m_parent->m_childrenByName.contains(candidate));
    return candidate;
}

void ServerItem::setName(const QString& requested)
{
    const QString old = m_name;
    QString name = validName(requested);
    if (!isNameValid(name))
        name = createUniqName(name + QStringLiteral("_%1"));
    m_name = name;
    if (m_parent && m_parent->m_childrenByName.value(old) == this) {
        m_parent->m_childrenByName.remove(old);
        m_parent->m_childrenByName.insert(m_name, this);
    }
}

void ServerItem::setEnabled(bool enabled)
{
    setProperty("enabled", enabled);
    if (enabled && m_parent && !m_parent->isEnabled())
        m_parent->setEnabled(true);
    emit stateChanged();
}

QString ServerItem::getErrorString(int code, int) const
{
    switch (code) {
    case 2:
        return QStringLiteral("%1 (%2)").arg(tr("Port error"), tr("Port error code"));
    case 3:
        return tr("Config error(invalid access type)");
    case 4:
        return tr("Port/Link error");
    case 5:
        return tr("Timeout error");
    default:
        return tr("No error");
    }
}

void ServerItem::updateState(int code)
{
    m_state = code == 1 ? StateGood : StateFailed;
    if (code != 1)
        ++m_errorCount;
    m_errorCode = code;
    emit stateChanged();
}

void ServerItem::resetState()
{
    m_state = StateNotTried;
    m_errorCode = 1;
    m_errorCount = 0;
    m_errorText = getErrorString(1, 0);
    emit stateChanged();
    for (ServerItem* item : qAsConst(m_children))
        item->resetState();
}
