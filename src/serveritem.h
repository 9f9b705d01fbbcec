#ifndef SERVERITEM_H
#define SERVERITEM_H

#include <QIcon>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

// The common base of every object of the tree Server > Port > Device > Tag:
// owns its children and keeps their names unique among siblings, carries the
// last communication state of the object, and saves itself to a map of values.
//
// Result codes of an operation: 1 no error, 2 port error, 3 invalid access
// type, 4 port or link error, 5 timeout. States: 1 not tried yet, 2 last
// operation good, 3 last operation failed.
class ServerItem : public QObject
{
    Q_OBJECT

public:
    enum State { StateNotTried = 1, StateGood = 2, StateFailed = 3 };
    enum ItemType { TypeServer = 1, TypePort = 2, TypeDevice = 3, TypeTag = 4 };

    explicit ServerItem(ServerItem* parent = nullptr);
    ~ServerItem() override;

    virtual QString fullName() const = 0;
    virtual QIcon icon() const = 0;
    virtual bool load(const QMap<QString, QVariant>& map) = 0;
    virtual QMap<QString, QVariant> save() const = 0;
    virtual bool insertChildren(int position, int count);
    virtual bool removeChildren(int position, int count);
    virtual void removeChildren();
    virtual QString createUniqName(const QString& pattern) const;
    virtual int type() const = 0;
    virtual ServerItem* createChild() = 0;
    virtual QString getErrorString(int code, int subCode) const;

    ServerItem* parentItem() const { return m_parent; }
    ServerItem* child(int index) const;
    int childCount() const { return int(m_children.size()); }
    const QList<ServerItem*>& children() const { return m_children; }
    ServerItem* childByName(const QString& name) const { return m_childrenByName.value(name, nullptr); }
    QStringList childNames() const { return m_childrenByName.keys(); }
    int childNumber() const;
    // Takes ownership; a negative position or one past the end appends.
    void insertChild(int position, ServerItem* child);
    // Takes the child out of the lists without deleting it.
    ServerItem* takeChild(ServerItem* child);

    bool canMoveUp(ServerItem* child) const;
    bool canMoveDown(ServerItem* child) const;
    void moveChildUp(ServerItem* child);
    void moveChildDown(ServerItem* child);

    QString name() const { return m_name; }
    void setName(const QString& name);
    static QString validName(const QString& name);
    bool isNameValid(const QString& name) const;

    QString title() const { return m_title; }
    bool isEnabled() const { return property("enabled").toBool(); }
    void setEnabled(bool enabled);

    int state() const { return m_state; }
    int errorCode() const { return m_errorCode; }
    QString errorText() const { return m_errorText; }
    void setErrorText(const QString& text) { m_errorText = text; }
    int errorCount() const { return m_errorCount; }
    void updateState(int code);
    void resetState();

signals:
    void stateChanged();
    void modified();

protected:
    // For subclasses that keep the code and text of their own operations.
    void setErrorCode(int code) { m_errorCode = code; }

private:
    QString m_title;
    ServerItem* m_parent;
    QList<ServerItem*> m_children;
    QMap<QString, ServerItem*> m_childrenByName;
    mutable QMap<QString, int> m_nameCounters;
    int m_errorCode = 1;
    int m_state = StateNotTried;
    QString m_errorText;
    QString m_name;
    int m_errorCount = 0;
};

#endif // SERVERITEM_H
