#ifndef SERVER_H
#define SERVER_H

#include "serveritem.h"

class Port;

// The root of the tree: its children are the ports. Its map is the whole
// configuration tree, { "ports": [ port, port, ... ] }, the "srv" object of
// the configuration file.
class Server : public ServerItem
{
    Q_OBJECT

public:
    explicit Server(ServerItem* parent = nullptr);

    QString fullName() const override { return name(); }
    QIcon icon() const override { return QIcon(); }
    bool load(const QMap<QString, QVariant>& map) override;
    QMap<QString, QVariant> save() const override;
    int type() const override { return TypeServer; }
    ServerItem* createChild() override;
    void fillServer() {}

    // The port of that name, made if missing; null for an empty name.
    Port* addPort(const QString& name, int position = -1);
    void removePort(const QString& name);
    Port* portByName(const QString& name) const;
    QList<Port*> ports() const;
    QStringList portNames() const { return childNames(); }
    int portCount() const { return childCount(); }
    int deviceCount() const;
    void clear();

    // The master the program acts as on every line: primary (the default)
    // or secondary; it sets bit 7 of the first address byte.
    bool isPrimaryMaster() const { return m_master == 1; }
    void setPrimaryMaster(bool primary) { m_master = primary ? 1 : 2; }

signals:
    void loaded();

private:
    int m_master = 1;
};

#endif // SERVER_H
