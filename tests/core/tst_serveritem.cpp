#include "device.h"
#include "port.h"
#include "qjsonsettings.h"
#include "server.h"
#include "simulatedline.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
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
        QTest::addColumn<QString>("requested");
        QTest::addColumn<QString>("name");

        QTest::newRow("plain") << "Boiler" << QString("Boiler");
        QTest::newRow("blank") << "Boiler 1" << QString("Boiler_1");
        QTest::newRow("several blanks and a tab") << "Boiler  \t1" << QString("Boiler_1");
        QTest::newRow("backslashes and blanks in a row") << "a \\\\ b" << QString("a_b");
        QTest::newRow("slash stays") << "a/b" << QString("a/b");
    }

    void cleanedNames()
    {
        QFETCH(QString, requested);
        QFETCH(QString, name);
        QCOMPARE(ServerItem::validName(requested), name);
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
        QVERIFY(!root.childByName("Item1"));
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

    void insertAndRemove()
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

        QVERIFY(!root.removeChildren(2, 2));
        QVERIFY(!root.removeChildren(-1, 1));
        QVERIFY(root.removeChildren(1, 0));
        QCOMPARE(root.childCount(), 3);
        QVERIFY(root.removeChildren(0, 2));
        QCOMPARE(namesOf(root), QStringList({"Item3"}));
        QCOMPARE(root.childNames(), QStringList({"Item3"}));
        root.removeChildren();
        QCOMPARE(root.childCount(), 0);
    }

    void moves()
    {
        Item root;
        root.insertChildren(0, 3); // Item3, Item2, Item1
        ServerItem* first = root.child(0);
        ServerItem* last = root.child(2);
        QVERIFY(!root.canMoveUp(first));
        QVERIFY(root.canMoveDown(first));
        QVERIFY(!root.canMoveDown(last));
        root.moveChildDown(last);
        QCOMPARE(namesOf(root), QStringList({"Item3", "Item2", "Item1"}));
        root.moveChildUp(last);
        QCOMPARE(namesOf(root), QStringList({"Item3", "Item1", "Item2"}));
        root.moveChildDown(first);
        QCOMPARE(namesOf(root), QStringList({"Item1", "Item3", "Item2"}));
        QCOMPARE(root.childByName("Item3"), first);
    }

    void enablingGoesUp()
    {
        Item root;
        root.insertChildren(0, 1);
        ServerItem* child = root.child(0);
        child->insertChildren(0, 1);
        ServerItem* grandchild = child->child(0);
        QSignalSpy spy(grandchild, &ServerItem::stateChanged);

        root.setEnabled(false);
        child->setEnabled(false);
        QVERIFY(grandchild->isEnabled()); // disabling goes neither up nor down
        grandchild->setEnabled(true);
        QVERIFY(child->isEnabled());
        QVERIFY(root.isEnabled());
        grandchild->setEnabled(false);
        QVERIFY(child->isEnabled());
        QCOMPARE(spy.count(), 2);
    }

    void stateAndReset()
    {
        Item root;
        root.insertChildren(0, 1);
        ServerItem* child = root.child(0);
        QCOMPARE(child->state(), int(ServerItem::StateNotTried));
        child->updateState(4);
        child->updateState(5);
        QCOMPARE(child->state(), int(ServerItem::StateFailed));
        QCOMPARE(child->errorCode(), 5);
        QCOMPARE(child->errorCount(), 2);
        child->updateState(1);
        QCOMPARE(child->state(), int(ServerItem::StateGood));
        QCOMPARE(child->errorCount(), 2);

        QSignalSpy spy(child, &ServerItem::stateChanged);
        root.resetState();
        QCOMPARE(child->state(), int(ServerItem::StateNotTried));
        QCOMPARE(child->errorCode(), 1);
        QCOMPARE(child->errorCount(), 0);
        QCOMPARE(child->errorText(), QStringLiteral("No error"));
        QCOMPARE(spy.count(), 1);
    }

    void errorStrings()
    {
        Item item;
        const QList<QPair<int, QString>> texts{{1, "No error"},
                                               {2, "Port error (Port error code)"},
                                               {3, "Config error(invalid access type)"},
                                               {4, "Port/Link error"},
                                               {5, "Timeout error"},
                                               {-3, "No error"}};
        for (const auto& [code, text] : texts)
            QCOMPARE(item.getErrorString(code, 7), text);
    }

    void serverPortsAndNames()
    {
        Server server;
        QCOMPARE(server.name(), QStringLiteral("Server"));
        QCOMPARE(server.type(), 1);
        QVERIFY(!server.addPort(QString()));
        Port* b = server.addPort("B");
        Port* a = server.addPort("A", 0);
        QCOMPARE(server.addPort("B"), b);
        QCOMPARE(server.portCount(), 2);
        QCOMPARE(server.ports(), QList<Port*>({a, b}));
        QCOMPARE(server.portNames(), QStringList({"A", "B"}));
        QCOMPARE(server.portByName("B"), b);
        // A change in a port reaches the server.
        QSignalSpy modified(&server, &ServerItem::modified);
        emit a->modified();
        QCOMPARE(modified.count(), 1);
        server.removePort("nobody");
        server.removePort("A");
        QCOMPARE(server.ports(), QList<Port*>({b}));
        server.clear();
        QCOMPARE(server.portCount(), 0);
    }

    void serverLoad_data()
    {
        QTest::addColumn<QVariantMap>("map");
        QTest::addColumn<bool>("loaded");
        QTest::addColumn<QStringList>("ports");

        const QVariantMap one{{"name", "P1"}};
        QTest::newRow("no ports key") << QVariantMap{{"x", 1}} << false << QStringList({"Old"});
        QTest::newRow("empty list keeps the tree")
            << QVariantMap{{"ports", QVariantList()}} << false << QStringList({"Old"});
        QTest::newRow("not a list") << QVariantMap{{"ports", "P1"}} << false << QStringList({"Old"});
        QTest::newRow("two ports") << QVariantMap{{"ports", QVariantList{one, QVariantMap{{"name", "P2"}}}}} << true
                                   << QStringList({"P1", "P2"});
        QTest::newRow("same name twice gives one port")
            << QVariantMap{{"ports", QVariantList{one, one}}} << true << QStringList({"P1"});
        QTest::newRow("element without a name is skipped")
            << QVariantMap{{"ports", QVariantList{QVariantMap{{"serial_name", "x"}}, one, 5}}} << true
            << QStringList({"P1"});
    }

    void serverLoad()
    {
        QFETCH(QVariantMap, map);
        QFETCH(bool, loaded);
        QFETCH(QStringList, ports);

        Server server;
        server.addPort("Old");
        QSignalSpy spy(&server, &Server::loaded);
        QCOMPARE(server.load(map), loaded);
        QCOMPARE(spy.count(), loaded ? 1 : 0);
        QStringList names;
        for (const Port* port : server.ports())
            names << port->name();
        QCOMPARE(names, ports);
    }

    void saveLoadRoundTrip()
    {
        Server server;
        server.addPort("Line B")->setProperty("priority", 3);
        server.addPort("A");
        const QVariantMap saved = server.save();
        QCOMPARE(saved.keys(), QStringList({"ports"}));
        const QVariantList list = saved.value("ports").toList();
        QCOMPARE(list.size(), 2);
        // Display order, not the order of names.
        QCOMPARE(list.at(0).toMap().value("name").toString(), QStringLiteral("Line_B"));

        Server other;
        QVERIFY(other.load(saved));
        QCOMPARE(other.save(), saved);
        QCOMPARE(other.portByName("Line_B")->property("priority").toInt(), 3);
    }

    void aConfigurationOnTheDemoLine()
    {
        QTemporaryDir dir;
        SimulatedLine sim;
        QString error;
        QVERIFY2(sim.startDemo(&error), qPrintable(error));

        // The file a user keeps: one port on the line, the four devices of it.
        const QString file = dir.filePath(QStringLiteral("calvane.cfg"));
        QVariantList devices;
        const char* const templates[] = {"TCV-C", "QP-1C", "pH-7702", "General"};
        for (int address = 0; address < 4; ++address)
            devices << QVariantMap{{"name", QStringLiteral("D%1").arg(address)},
                                   {"template", templates[address]},
                                   {"polling_address", address}};
        {
            QJsonSettings settings(file);
            settings.setValue("srv", QVariantMap{{"ports", QVariantList{QVariantMap{{"name", "Line 1"},
                                                                                    {"serial_name", sim.path()},
                                                                                    {"byte_timeout", 20},
                                                                                    {"devices", devices}}}}});
        }
        Server server;
        QVERIFY(server.load(QJsonSettings(file).value("srv").toMap()));
        Port* port = server.portByName("Line_1");
        QVERIFY(port);
        QCOMPARE(port->devices().size(), 4);

        const QList<int> reads = {1, 2, 3, 7, 8, 12, 13, 14, 15, 16, 20, 48};
        for (Device* device : port->devices()) {
            QVERIFY2(device->readDevice(0), qPrintable(device->errorText()));
            QVERIFY(device->isIdentified());
            for (int command : reads)
                QVERIFY2(device->readDevice(command), qPrintable(QStringLiteral("%1, command %2: %3")
                                                                     .arg(device->name())
                                                                     .arg(command)
                                                                     .arg(device->errorText())));
        }
        // The tag the simulator holds, and the name made of it.
        Device* pressure = port->device(1);
        QCOMPARE(pressure->getDeviceInfoString("tag").trimmed(), QStringLiteral("PT-102"));
        QCOMPARE(pressure->name(), QStringLiteral("QP-1C_{PT-102}"));

        // The file saved afterwards holds what was read.
        {
            QJsonSettings settings(file);
            settings.setValue("srv", server.save());
        }
        QFile saved(file);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QJsonObject srv = QJsonDocument::fromJson(saved.readAll()).object().value("srv").toObject();
        const QJsonObject savedPort = srv.value("ports").toArray().at(0).toObject();
        QCOMPARE(savedPort.value("serial_name").toString(), sim.path());
        const QJsonArray savedDevices = savedPort.value("devices").toArray();
        QCOMPARE(savedDevices.size(), 4);
        const QJsonObject second = savedDevices.at(1).toObject();
        QCOMPARE(second.value("template").toString(), QStringLiteral("QP-1C"));
        QCOMPARE(second.value("polling_address").toInt(), 1);
        const QJsonObject parameters = second.value("parameters").toObject();
        QCOMPARE(parameters.value("tag").toString().trimmed(), QStringLiteral("PT-102"));
        QCOMPARE(parameters.value("address").toString(), QStringLiteral("0x20h 0x93h 0x00h 0x93h 0x01h"));
        QCOMPARE(parameters.value("manufacturer_code").toInt(), 0xE0);
        QVERIFY(parameters.contains("range_max"));
        QVERIFY(parameters.contains("output_current"));
        QVERIFY(parameters.contains("error_code"));
        sim.stop();
    }
};

QTEST_GUILESS_MAIN(TestServerItem)
#include "tst_serveritem.moc"
