#include "columns.h"
#include "port.h"
#include "server.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

// The smallest concrete tree item: children of its own kind, named "Item%1".
class Item : public ServerItem
{
public:
    explicit Item(ServerItem* parent = nullptr) : ServerItem(parent)
    {
        setName(createUniqName(QStringLiteral("Item%1")));
    }
    QString fullName() const override { return name(); }
    QIcon icon() const override { return QIcon(); }
    bool load(const QMap<QString, QVariant>&) override { return true; }
    QMap<QString, QVariant> save() const override { return {}; }
    int type() const override { return 99; }
    ServerItem* createChild() override { return new Item(this); }
};

QStringList namesOf(const ServerItem& parent)
{
    QStringList names;
    for (const ServerItem* child : parent.children())
        names << child->name();
    return names;
}

} // namespace

class TestServerItem : public QObject
{
    Q_OBJECT

private slots:
    void cleanedNames_data()
    {
        addColumns<QString, QString>({"requested", "name"});

        QTest::newRow("several blanks and a tab") << "Boiler  \t1" << QString("Boiler_1");
        QTest::newRow("backslashes and blanks in a row") << "a \\\\ b" << QString("a_b");
        QTest::newRow("slash stays") << "a/b" << QString("a/b");
    }

    void cleanedNames()
    {
        QFETCH(QString, requested);
        QFETCH(QString, name);
        Item root;
        auto* child = static_cast<Item*>(root.createChild());
        root.insertChild(-1, child);
        child->setName(requested);
        QCOMPARE(child->name(), name);
        QCOMPARE(root.childByName(name), child);
    }

    void clashingNamesAreNumbered()
    {
        Item root;
        QVERIFY(root.insertChildren(0, 3));
        ServerItem* a = root.childByName("Item1");
        ServerItem* b = root.childByName("Item2");
        ServerItem* c = root.childByName("Item3");
        QVERIFY(a && b && c);
        // A renamed child is found under its new name only.
        a->setName("Tank");
        QCOMPARE(root.childByName("Tank"), a);
        QCOMPARE(root.childNames(), QStringList({"Item2", "Item3", "Tank"}));
        a->setName("Pump");
        b->setName("Pump");
        QCOMPARE(b->name(), QStringLiteral("Pump_1"));
        // The counter never goes back, also after the first of them is gone.
        QVERIFY(root.removeChildren(b->childNumber(), 1));
        c->setName("Pump");
        QCOMPARE(c->name(), QStringLiteral("Pump_2"));
        // A new child never takes the number of one that was deleted.
        root.insertChildren(0, 1);
        QVERIFY(root.childByName("Item4"));
        // Naming a child as it already is keeps the name.
        a->setName("Pump");
        QCOMPARE(a->name(), QStringLiteral("Pump"));
        // A root has no siblings: any name is valid and stays as asked.
        QVERIFY(root.isNameValid("Item2"));
        QCOMPARE(root.createUniqName("X%1"), QStringLiteral("X%1"));
    }

    void insertRemoveAndMove()
    {
        Item root;
        QVERIFY(root.insertChildren(0, 2));
        // Later ones stand before earlier ones.
        QCOMPARE(namesOf(root), QStringList({"Item2", "Item1"}));
        QVERIFY(root.insertChildren(2, 1));
        QCOMPARE(namesOf(root), QStringList({"Item2", "Item1", "Item3"}));
        QVERIFY(!root.insertChildren(-1, 1));
        QVERIFY(!root.insertChildren(4, 1));
        QCOMPARE(root.child(1)->childNumber(), 1);
        QCOMPARE(root.childNumber(), -1);
        QVERIFY(!root.child(3));
        QVERIFY(!root.child(-1));

        ServerItem* first = root.child(0);
        ServerItem* last = root.child(2);
        QVERIFY(!root.canMoveUp(first));
        QVERIFY(root.canMoveDown(first));
        QVERIFY(!root.canMoveDown(last));
        root.moveChildDown(last);
        QCOMPARE(namesOf(root), QStringList({"Item2", "Item1", "Item3"}));
        root.moveChildUp(last);
        QCOMPARE(namesOf(root), QStringList({"Item2", "Item3", "Item1"}));
        root.moveChildDown(first);
        QCOMPARE(namesOf(root), QStringList({"Item3", "Item2", "Item1"}));
        QCOMPARE(root.childByName("Item2"), first);

        QVERIFY(!root.removeChildren(2, 2));
        QVERIFY(!root.removeChildren(-1, 1));
        QVERIFY(root.removeChildren(1, 0));
        QCOMPARE(root.childCount(), 3);
        QVERIFY(root.removeChildren(0, 2));
        QCOMPARE(namesOf(root), QStringList({"Item1"}));
        QCOMPARE(root.childNames(), QStringList({"Item1"}));
        root.removeChildren();
        QCOMPARE(root.childCount(), 0);
    }

    void enablingAndState()
    {
        Item root;
        root.insertChildren(0, 1);
        ServerItem* child = root.child(0);
        child->insertChildren(0, 1);
        ServerItem* grandchild = child->child(0);
        QSignalSpy spy(child, &ServerItem::stateChanged);
        // Enabling goes up; disabling goes neither up nor down.
        root.setEnabled(false);
        child->setEnabled(false);
        QVERIFY(grandchild->isEnabled());
        grandchild->setEnabled(true);
        QVERIFY(child->isEnabled());
        QVERIFY(root.isEnabled());
        grandchild->setEnabled(false);
        QVERIFY(child->isEnabled());
        QCOMPARE(spy.count(), 2);

        QCOMPARE(child->state(), int(ServerItem::StateNotTried));
        child->updateState(4);
        child->updateState(5);
        QCOMPARE(child->state(), int(ServerItem::StateFailed));
        QCOMPARE(child->errorCode(), 5);
        QCOMPARE(child->errorCount(), 2);
        child->updateState(1);
        QCOMPARE(child->state(), int(ServerItem::StateGood));
        QCOMPARE(child->errorCount(), 2);
        spy.clear();
        root.resetState();
        QCOMPARE(child->state(), int(ServerItem::StateNotTried));
        QCOMPARE(child->errorCode(), 1);
        QCOMPARE(child->errorCount(), 0);
        QCOMPARE(child->errorText(), QStringLiteral("No error"));
        QCOMPARE(spy.count(), 1);
        QStringList texts;
        for (int code : {1, 2, 3, 4, 5, -3})
            texts << child->getErrorString(code, 7);
        QCOMPARE(texts, QStringList({"No error", "Port error (Port error code)", "Config error(invalid access type)",
                                     "Port/Link error", "Timeout error", "No error"}));
    }

    void serverPortsSaveAndLoad()
    {
        Server server;
        QCOMPARE(server.name(), QStringLiteral("Server"));
        QCOMPARE(server.type(), 1);
        QVERIFY(!server.addPort(QString()));
        Port* b = server.addPort("Line B");
        b->setProperty("priority", 3);
        Port* a = server.addPort("A");
        QCOMPARE(server.addPort("Line_B"), b);
        QCOMPARE(server.ports(), QList<Port*>({b, a}));
        QCOMPARE(server.portNames(), QStringList({"A", "Line_B"}));
        QCOMPARE(server.portByName("Line_B"), b);
        // A change in a port reaches the server.
        QSignalSpy modified(&server, &ServerItem::modified);
        emit a->modified();
        QCOMPARE(modified.count(), 1);

        // Saved in the order shown, not in the order of the names.
        const QVariantMap saved = server.save();
        QCOMPARE(saved.keys(), QStringList({"ports"}));
        QCOMPARE(saved.value("ports").toList().size(), 2);
        QCOMPARE(saved.value("ports").toList().at(0).toMap().value("name").toString(), QStringLiteral("Line_B"));
        Server other;
        QVERIFY(other.load(saved));
        QCOMPARE(other.save(), saved);
        QCOMPARE(other.portByName("Line_B")->property("priority").toInt(), 3);

        server.removePort("nobody");
        server.removePort("A");
        QCOMPARE(server.ports(), QList<Port*>({b}));
        server.clear();
        QCOMPARE(server.portCount(), 0);
    }

    void serverLoad_data()
    {
        addColumns<QVariantMap, bool, QStringList>({"map", "loaded", "ports"});

        const QVariantMap one{{"name", "P1"}};
        QTest::newRow("no ports key") << QVariantMap{{"x", 1}} << false << QStringList({"Old"});
        QTest::newRow("empty list keeps the tree")
            << QVariantMap{{"ports", QVariantList()}} << false << QStringList({"Old"});
        QTest::newRow("not a list") << QVariantMap{{"ports", "P1"}} << false << QStringList({"Old"});
        QTest::newRow("two ports") << QVariantMap{{"ports", QVariantList{one, QVariantMap{{"name", "P2"}}}}} << true
                                   << QStringList({"P1", "P2"});
        QTest::newRow("element without a name is skipped")
            << QVariantMap{{"ports", QVariantList{QVariantMap{{"serial_name", "x"}}, one, 5}}} << true
            << QStringList({"P1"});
    }

    void serverLoad()
    {
        QFETCH(QVariantMap, map);
        QFETCH(bool, loaded);

        Server server;
        server.addPort("Old");
        QSignalSpy spy(&server, &Server::loaded);
        QCOMPARE(server.load(map), loaded);
        QCOMPARE(spy.count(), loaded ? 1 : 0);
        QTEST(namesOf(server), "ports");
    }
};

QTEST_GUILESS_MAIN(TestServerItem)
#include "tst_serveritem.moc"
