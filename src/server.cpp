#include "server.h"

#include "debugqt.h"
#include "device.h"
#include "port.h"

Server::Server(ServerItem* parent) : ServerItem(parent)
{
    setName(QStringLiteral("Server"));
}

ServerItem* Server::createChild()
{
    auto* port = new Port(this);
    connect(port, &ServerItem::modified, this, &ServerItem::modified);
    return port;
}

Port* Server::addPort(const QString& name, int position)
{
    if (name.isEmpty())
        return nullptr;
    if (Port* present = portByName(name))
        return present;
    auto* port = static_cast<Port*>(createChild());
    if (port->isNameValid(name))
        port->setName(name);
    insertChild(position, port);
    return port;
}

void Server::removePort(const QString& name)
{
    Port* port = portByName(name);
    if (port && takeChild(port))
        delete port;
}

Port* Server::portByName(const QString& name) const
{
    return qobject_cast<Port*>(childByName(name));
}

QList<Port*> Server::ports() const
{
    QList<Port*> list;
    for (ServerItem* item : children())
        if (auto* port = qobject_cast<Port*>(item))
            list << port;
    return list;
}

int Server::deviceCount() const
{
    int count = 0;
    for (const Port* port : ports())
        count += port->childCount();
    return count;
}

void Server::clear()
{
    for (const QString& name : portNames())
        removePort(name);
}

bool Server::load(const QMap<QString, QVariant>& map)
{
    if (!map.contains(QStringLiteral("ports")))
        return false;
    const QVariant ports = map.value(QStringLiteral("ports"));
    // Only a list of ports replaces the tree; anything else leaves it alone.
    const QVariantList list = ports.typeId() == QMetaType::QVariantList ? ports.toList() : QVariantList();
    if (list.isEmpty()) {
        DBG(LevelWarn) << "ports.count() = 0  ---> Invalid or empty configuration";
        return false;
    }
    removeChildren();
    for (const QVariant& element : list) {
        const QVariantMap portMap = element.toMap();
        if (Port* port = addPort(portMap.value(QStringLiteral("name")).toString(), -1))
            port->load(portMap);
    }
    DBG(LevelInfo) << "emit loaded()";
    emit loaded();
    return true;
}

QMap<QString, QVariant> Server::save() const
{
    QVariantList list;
    for (const Port* port : ports())
        list << port->save();
    return {{QStringLiteral("ports"), list}};
}
