#include "appsettings.h"
#include "debugqt.h"
#include "device.h"
#include "finddevicedialog.h"
#include "mainwindow.h"
#include "modalanswerer.h"
#include "port.h"
#include "server.h"
#include "simulatedline.h"
#include "tcv2widget.h"

#include <QAction>
#include <QJsonDocument>
#include <QLabel>
#include <QMessageBox>
#include <QSpinBox>
#include <QSplitter>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTreeWidgetItem>
#include <QtTest>

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void logMask_data();
    void logMask();
    void titleAndCounters_data();
    void titleAndCounters();
    void backupAtFirstChangeOnly_data();
    void backupAtFirstChangeOnly();
    void backupFailureKeepsWindowUnmodified();
    void failedSaveRestoresFile();
    void saveWithoutNameGoesToSaveAs_data();
    void saveWithoutNameGoesToSaveAs();
    void closeAsks_data();
    void closeAsks();
    void splitterMoveEnablesSave();
    void actionsFollowSelection_data();
    void actionsFollowSelection();
    void selectionRestored_data();
    void selectionRestored();
    void selectionSavedAsParentAndName();
    void deviceTreeRules_data();
    void deviceTreeRules();
    void factoryNumberNeedsModelDevice_data();
    void factoryNumberNeedsModelDevice();
    void findAddsDevicesOnce();

private:
    // Writes the configuration file (and the pointer file naming it) with the
    // ports given as "port name" -> list of "template:tag" entries at polling
    // address 0; a device is named "<template>_{<tag>}" when it loads. The
    // device entries take the values of device too, "deviceID" among their
    // parameters.
    QString writeConfig(const QMap<QString, QStringList>& ports, const QVariantMap& app = {},
                        const QVariantMap& device = {}, const QString& baseName = QStringLiteral("test.cfg"));
    static QByteArray readFile(const QString& name);
    static Device* device(MainWindow& window, const QString& port, const QString& name);
    template <typename T>
    static T* child(MainWindow& window, const char* name)
    {
        return window.findChild<T*>(QLatin1String(name));
    }

    QTemporaryDir m_dir;
    QString m_cfg;
};

void TestMainWindow::initTestCase()
{
    QVERIFY(m_dir.isValid());
    // The data directory is the working directory when the settings are first made.
    QVERIFY(QDir::setCurrent(m_dir.path()));
    DebugQt::instance(0x8ED0007, nullptr);
    AppSettings::instance();
    QCOMPARE(AppSettings::data_dir(), QDir(m_dir.path()).absolutePath());
}

void TestMainWindow::init()
{
    QDir cfg(AppSettings::cfg_dir());
    QVERIFY(cfg.removeRecursively());
    QVERIFY(QDir().mkpath(AppSettings::cfg_dir()));
    m_cfg = writeConfig({{QStringLiteral("P0"), {QStringLiteral("TCV-C:D1")}}});
}

QString TestMainWindow::writeConfig(const QMap<QString, QStringList>& ports, const QVariantMap& app,
                                    const QVariantMap& device, const QString& baseName)
{
    QVariantList portList;
    for (auto it = ports.constBegin(); it != ports.constEnd(); ++it) {
        QVariantList devices;
        for (const QString& entry : it.value()) {
            const QStringList parts = entry.split(QLatin1Char(':'));
            QVariantMap parameters{{"tag", parts.at(1)}};
            QVariantMap map{{"name", QString()}, {"template", parts.at(0)}, {"polling_address", 0}};
            for (auto value = device.constBegin(); value != device.constEnd(); ++value)
                (value.key() == QLatin1String("deviceID") ? parameters : map).insert(value.key(), value.value());
            map.insert("parameters", parameters);
            devices << map;
        }
        portList << QVariantMap{{"name", it.key()}, {"devices", devices}};
    }
    const QString name = AppSettings::cfg_dir() + QLatin1Char('/') + baseName;
    const QVariantMap config{{"srv", QVariantMap{{"ports", portList}}}, {"app", app}};
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument::fromVariant(config).toJson()) < 0)
        return QString();
    file.close();
    QFile pointer(AppSettings::startup_cfg_fn());
    if (!pointer.open(QIODevice::WriteOnly))
        return QString();
    pointer.write(QJsonDocument::fromVariant(QVariantMap{{"cfg_filename", name}}).toJson());
    return name;
}

QByteArray TestMainWindow::readFile(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

Device* TestMainWindow::device(MainWindow& window, const QString& port, const QString& name)
{
    Port* p = window.portByName(port);
    return p ? p->device(name) : nullptr;
}

void TestMainWindow::logMask_data()
{
    QTest::addColumn<QStringList>("flags");
    QTest::addColumn<unsigned int>("mask");
    QTest::newRow("none: silent") << QStringList() << 0x8ed0000u;
    QTest::newRow("err and info") << QStringList{"ERR", "INFO"} << 0x8ed0005u;
    QTest::newRow("unknown entries ignored") << QStringList{"WARN", "DEBUG", "err"} << 0x8ed0002u;
}

void TestMainWindow::logMask()
{
    QFETCH(QStringList, flags);
    QFETCH(unsigned int, mask);
    writeConfig({{"P0", {}}}, {{"log_flags", flags}});
    MainWindow window;
    QCOMPARE(DebugQt::instance(0, nullptr)->flags(), mask);
}

void TestMainWindow::titleAndCounters_data()
{
    QTest::addColumn<QVariantMap>("ports"); // name -> device entries
    QTest::addColumn<bool>("named");
    QTest::addColumn<QString>("counters");
    QTest::newRow("no ports: nothing loads") << QVariantMap() << false << "ports: 0, devices: 0";
    QTest::newRow("two ports, three devices")
        << QVariantMap{{"P0", QStringList{"TCV-C:D1", "General:D2"}}, {"P1", QStringList{"QP-1C:D3"}}} << true
        << "ports: 2, devices: 3";
}

void TestMainWindow::titleAndCounters()
{
    QFETCH(QVariantMap, ports);
    QFETCH(bool, named);
    QFETCH(QString, counters);
    QMap<QString, QStringList> tree;
    for (auto it = ports.constBegin(); it != ports.constEnd(); ++it)
        tree.insert(it.key(), it.value().toStringList());
    const QString file = writeConfig(tree);
    MainWindow window;
    QCOMPARE(window.windowTitle(),
             QStringLiteral("Orvena. Calvane - [*]%1").arg(named ? file : QStringLiteral("Untitled")));
    QCOMPARE(child<QLabel>(window, "labelCounters")->text(), counters);
    if (named) { // the editor follows the model
        QVERIFY(qobject_cast<TCV2Widget*>(window.editor(device(window, "P0", "TCV-C_{D1}"))));
        QVERIFY(!qobject_cast<TCV2Widget*>(window.editor(device(window, "P0", "General_{D2}"))));
    }
    QVERIFY(!window.isWindowModified());
    QVERIFY(!child<QAction>(window, "actionSave")->isEnabled());
}

void TestMainWindow::backupAtFirstChangeOnly_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("port added") << "add";
    QTest::newRow("port removed") << "remove";
    QTest::newRow("tree cleared") << "new";
}

void TestMainWindow::backupAtFirstChangeOnly()
{
    QFETCH(QString, change);
    const QByteArray saved = readFile(m_cfg);
    const QString backup = m_cfg + QStringLiteral(".bak");
    MainWindow window;
    QVERIFY(!QFile::exists(backup));

    if (change == QLatin1String("add")) {
        window.addItem();
    } else if (change == QLatin1String("remove")) {
        window.selectItem(window.portByName("P0"));
        window.deleteItem();
    } else {
        window.newTree(true);
    }
    QVERIFY(window.isWindowModified());
    QCOMPARE(readFile(backup), saved);

    // A second change finds the window modified and leaves the backup alone.
    QFile::remove(backup);
    QVERIFY(QFile(backup).open(QIODevice::WriteOnly));
    window.selectItem(window.server());
    window.addItem();
    QCOMPARE(readFile(backup), QByteArray());
    QVERIFY(child<QAction>(window, "actionSave")->isEnabled());
}

void TestMainWindow::backupFailureKeepsWindowUnmodified()
{
    const QString backup = m_cfg + QStringLiteral(".bak");
    QVERIFY(QDir().mkpath(backup + QStringLiteral("/inside")));
    MainWindow window;
    ModalAnswerer answerer({QMessageBox::Ok});
    window.addItem();
    QCOMPARE(answerer.seen().size(), 1);
    QVERIFY2(answerer.seen().at(0).startsWith(QStringLiteral("Error|can't remove file '%1', '").arg(backup)),
             qPrintable(answerer.seen().at(0)));
    QVERIFY(!window.isWindowModified());
    QCOMPARE(window.server()->portCount(), 2);
    QVERIFY(window.treeItem(window.portByName("Port_1")));
}

void TestMainWindow::failedSaveRestoresFile()
{
    // A name of 251 characters: its ".bak" fits a file name, and the lock file
    // that every write of the settings takes, name + ".lock", does not. This
    // also holds for root, who may write anywhere.
    m_cfg = writeConfig({{"P0", {}}}, {}, {}, QString(247, QLatin1Char('c')) + QStringLiteral(".cfg"));
    QVERIFY(!m_cfg.isEmpty());
    const QByteArray saved = readFile(m_cfg);
    MainWindow window;
    window.addItem();
    QVERIFY(window.isWindowModified());

    // A file from long ago: the one put back from the backup is new.
    const QDateTime longAgo(QDate(2001, 1, 1), QTime(0, 0));
    {
        QFile file(m_cfg);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    }
    ModalAnswerer answerer({QMessageBox::Ok});
    QVERIFY(!window.save());
    QCOMPARE(answerer.seen(), QStringList{"Calvane|Config file write error!"});
    // Put back from the backup, which stays.
    QVERIFY(QFileInfo(m_cfg).lastModified() > longAgo);
    QCOMPARE(readFile(m_cfg), saved);
    QCOMPARE(readFile(m_cfg + QStringLiteral(".bak")), saved);
    QVERIFY(window.isWindowModified());
}

void TestMainWindow::saveWithoutNameGoesToSaveAs_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("new file") << false;
    QTest::newRow("over a file") << true;
}

void TestMainWindow::saveWithoutNameGoesToSaveAs()
{
    QFETCH(bool, exists);
    const QString chosen = AppSettings::cfg_dir() + QStringLiteral("/chosen.cfg");
    if (exists) {
        QFile old(chosen);
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("{\"old\": 1}") == 10);
    }
    MainWindow window;
    window.addItem();
    AppSettings::set_cfg_fn(QString());

    QVariantList answers{chosen};
    if (exists)
        answers << QMessageBox::Yes; // replace the file
    ModalAnswerer answerer(answers);
    QVERIFY(window.save());
    QCOMPARE(answerer.seen().value(0), QStringLiteral("Save As..|file"));
    QCOMPARE(AppSettings::cfg_fn(), chosen);
    QVERIFY(window.windowTitle().endsWith(QStringLiteral("[*]") + chosen));
    QVERIFY(!window.isWindowModified());
    QVERIFY(!QFile::exists(chosen + QStringLiteral(".bak")));
    const QVariantMap written = QJsonDocument::fromJson(readFile(chosen)).toVariant().toMap();
    QCOMPARE(written.value("srv").toMap().value("ports").toList().size(), 2);
    QCOMPARE(written.value("old"), exists ? QVariant(1) : QVariant());
}

void TestMainWindow::closeAsks_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closes");
    const QString modifiedText = "Calvane|Configuration has been modified.\nDo you want to save your changes?";
    QTest::addColumn<QString>("asked");
    QTest::newRow("unmodified, cancel") << false << int(QMessageBox::Cancel) << false
                                        << "Calvane|Are you sure you want to exit the application ?";
    QTest::newRow("unmodified, yes") << false << int(QMessageBox::Yes) << true
                                     << "Calvane|Are you sure you want to exit the application ?";
    QTest::newRow("modified, no") << true << int(QMessageBox::No) << true << modifiedText;
    QTest::newRow("modified, cancel") << true << int(QMessageBox::Cancel) << false << modifiedText;
}

void TestMainWindow::closeAsks()
{
    QFETCH(bool, modified);
    QFETCH(int, answer);
    QFETCH(bool, closes);
    QFETCH(QString, asked);
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    if (modified)
        window.addItem();
    QVERIFY(window.isWindowModified() == modified);
    QSignalSpy closing(&window, &MainWindow::closeApplication);
    ModalAnswerer answerer({answer});
    QCOMPARE(window.close(), closes);
    QCOMPARE(answerer.seen(), QStringList{asked});
    QCOMPARE(closing.size(), closes ? 1 : 0);
    QCOMPARE(window.isVisible(), !closes);
}

void TestMainWindow::splitterMoveEnablesSave()
{
    MainWindow window;
    QAction* save = child<QAction>(window, "actionSave");
    QVERIFY(!save->isEnabled());
    // What a drag of the handle sends; the window takes it by its name.
    emit child<QSplitter>(window, "splitter")->splitterMoved(150, 1);
    QVERIFY(window.isWindowModified());
    QVERIFY(save->isEnabled());
}

void TestMainWindow::actionsFollowSelection_data()
{
    QTest::addColumn<QString>("select");
    QTest::addColumn<bool>("identified");
    QTest::addColumn<int>("tagState");
    QTest::addColumn<QList<bool>>("enabled"); // add, remove, save as template, test
    QTest::newRow("root") << "root" << false << 1 << QList<bool>{true, false, false, false};
    QTest::newRow("port") << "port" << false << 1 << QList<bool>{true, true, false, false};
    QTest::newRow("port with archived device") << "port" << true << 0x40 << QList<bool>{true, false, false, false};
    QTest::newRow("port with polled device") << "port" << true << 0x10 << QList<bool>{true, true, false, false};
    QTest::newRow("device not identified") << "device" << false << 1 << QList<bool>{false, true, true, false};
    QTest::newRow("device identified") << "device" << true << 4 << QList<bool>{false, true, true, true};
    QTest::newRow("device polled") << "device" << true << 0x14 << QList<bool>{false, false, true, false};
    QTest::newRow("device archived") << "device" << true << 0x40 << QList<bool>{false, false, true, false};
    QTest::newRow("nothing selected") << "none" << false << 1 << QList<bool>{false, false, false, false};
}

void TestMainWindow::actionsFollowSelection()
{
    QFETCH(QString, select);
    QFETCH(bool, identified);
    QFETCH(int, tagState);
    QFETCH(QList<bool>, enabled);
    writeConfig({{"P0", {"TCV-C:D1"}}}, {},
                identified ? QVariantMap{{"deviceID", "0x12h 0x34h 0x56h"}} : QVariantMap());
    MainWindow window;
    Device* d = TestMainWindow::device(window, "P0", "TCV-C_{D1}");
    QVERIFY(d);
    QCOMPARE(d->hartDeviceID().isEmpty(), !identified);
    d->setDeviceTagState(tagState);
    window.selectItem(select == "root"     ? static_cast<ServerItem*>(window.server())
                      : select == "port"   ? static_cast<ServerItem*>(window.portByName("P0"))
                      : select == "device" ? static_cast<ServerItem*>(d)
                                           : nullptr);
    window.updateActions();
    const QList<bool> actual{
        child<QAction>(window, "actionAdd")->isEnabled(), child<QAction>(window, "actionRemove")->isEnabled(),
        child<QAction>(window, "actionSaveAsTemplate")->isEnabled(), child<QAction>(window, "actionTest")->isEnabled()};
    QCOMPARE(actual, enabled);
}

void TestMainWindow::selectionRestored_data()
{
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("port"); // empty: the root stays selected
    QTest::addColumn<QString>("device");
    QTest::newRow("port under the root") << "Ports_&_Devices/P1"
                                         << "P1"
                                         << "";
    QTest::newRow("device under its port") << "P0/TCV-C_{D1}"
                                           << "P0"
                                           << "TCV-C_{D1}";
    QTest::newRow("bare port name") << "P1"
                                    << "P1"
                                    << "";
    QTest::newRow("the root itself") << "serverRoot/Ports_&_Devices"
                                     << ""
                                     << "";
    QTest::newRow("unknown device") << "P0/TCV-C_{D9}"
                                    << ""
                                    << "";
    QTest::newRow("port name holds /") << "Ports_&_Devices/a/b"
                                       << ""
                                       << "";
    QTest::newRow("device name holds /") << "P1/General_{x/y}"
                                         << ""
                                         << "";
}

void TestMainWindow::selectionRestored()
{
    QFETCH(QString, current);
    QFETCH(QString, port);
    QFETCH(QString, device);
    writeConfig({{"P0", {"TCV-C:D1"}}, {"P1", {"General:x/y"}}, {"a/b", {"QP-1C:D2"}}}, {{"current_item", current}});
    MainWindow window;
    QCoreApplication::processEvents(); // the restoring waits for the event loop
    ServerItem* expected = port.isEmpty()     ? static_cast<ServerItem*>(window.server())
                           : device.isEmpty() ? static_cast<ServerItem*>(window.portByName(port))
                                              : TestMainWindow::device(window, port, device);
    QVERIFY(expected);
    QCOMPARE(window.currentServerItem(), expected);
}

void TestMainWindow::selectionSavedAsParentAndName()
{
    MainWindow window;
    window.selectItem(device(window, "P0", "TCV-C_{D1}"));
    QVERIFY(window.save());
    const QVariantMap app = QJsonDocument::fromJson(readFile(m_cfg)).toVariant().toMap().value("app").toMap();
    QCOMPARE(app.value("current_item").toString(), QStringLiteral("P0/TCV-C_{D1}"));

    MainWindow again;
    QCoreApplication::processEvents();
    QCOMPARE(again.currentServerItem(), device(again, "P0", "TCV-C_{D1}"));
}

void TestMainWindow::deviceTreeRules_data()
{
    QTest::addColumn<bool>("identified");
    QTest::addColumn<int>("tagState");
    QTest::addColumn<QList<int>>("results"); // result codes of operations
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<QColor>("colour");
    const QColor black(Qt::black), red(Qt::red), green(Qt::darkGreen);
    QTest::newRow("new") << false << 1 << QList<int>() << ""
                         << "%1 " << false << black;
    QTest::newRow("read well") << true << 4 << QList<int>{1} << ""
                               << "%1 [>]" << true << green;
    QTest::newRow("written well") << true << 8 << QList<int>{1} << ""
                                  << "%1 [<]" << true << green;
    QTest::newRow("read, then a failure") << true << 4 << QList<int>{1, 5} << ""
                                          << "%1 [>]" << true << red;
    QTest::newRow("failure, then read well") << true << 4 << QList<int>{4, 1} << ""
                                             << "%1 [>]" << true << red;
    QTest::newRow("read mark, nothing tried") << true << 4 << QList<int>() << ""
                                              << "%1 [>]" << true << black;
    QTest::newRow("failure without read or write") << false << 1 << QList<int>{4} << ""
                                                   << "%1 " << false << black;
    QTest::newRow("marked, polled, comment") << false << 0x30 << QList<int>() << "note"
                                             << "+%1 [@]note" << false << black;
    QTest::newRow("every mark") << true << 0x5e << QList<int>{1} << ""
                                << "%1 [>*<@!]" << true << green;
}

void TestMainWindow::deviceTreeRules()
{
    QFETCH(bool, identified);
    QFETCH(int, tagState);
    QFETCH(QList<int>, results);
    QFETCH(QString, comment);
    QFETCH(QString, text);
    QFETCH(bool, bold);
    QFETCH(QColor, colour);
    QVariantMap device{{"comment", comment}};
    if (identified)
        device.insert("deviceID", "0x01h 0x02h 0x03h");
    writeConfig({{"P0", {"General:D1"}}}, {}, device);
    MainWindow window;
    Device* d = TestMainWindow::device(window, "P0", "General_{D1}");
    QVERIFY(d);
    d->setDeviceTagState(tagState);
    for (int code : results)
        d->updateState(code);
    window.updateDeviceStatusInTree(d);
    QTreeWidgetItem* entry = window.treeItem(d);
    QCOMPARE(entry->text(0), text.arg(d->name()));
    QCOMPARE(entry->font(0).bold(), bold);
    QCOMPARE(entry->foreground(0).color(), colour);
}

void TestMainWindow::factoryNumberNeedsModelDevice_data()
{
    QTest::addColumn<QString>("select"); // port/device, or empty for the root
    QTest::addColumn<QString>("seen");
    QTest::newRow("root") << ""
                          << "Calvane|Select an instrument of our maker to write its factory number.";
    QTest::newRow("port") << "P0"
                          << "Calvane|Select an instrument of our maker to write its factory number.";
    QTest::newRow("generic device") << "P0/General_{G1}"
                                    << "Calvane|The device General_{G1} has no factory number.";
    QTest::newRow("model device") << "P0/TCV-C_{D1}"
                                  << "Factory number|FactoryNumberDialog";
}

void TestMainWindow::factoryNumberNeedsModelDevice()
{
    QFETCH(QString, select);
    QFETCH(QString, seen);
    writeConfig({{"P0", {"TCV-C:D1", "General:G1"}}});
    MainWindow window;
    const QStringList path = select.split(QLatin1Char('/'));
    window.selectItem(select.isEmpty()   ? static_cast<ServerItem*>(window.server())
                      : path.size() == 1 ? static_cast<ServerItem*>(window.portByName(path.at(0)))
                                         : device(window, path.at(0), path.at(1)));
    QAction* action = child<QAction>(window, "actionFactoryNumber");
    QCOMPARE(action->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+F")));
    ModalAnswerer answerer({QMessageBox::Ok});
    action->trigger();
    QCOMPARE(answerer.seen(), QStringList{seen});
    // Nothing was written: the configuration stays as it was.
    QVERIFY(!window.isWindowModified());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"

void TestMainWindow::findAddsDevicesOnce()
{
    SimulatedLine sim;
    QString error;
    QVERIFY2(sim.startDemo(&error), qPrintable(error));
    MainWindow window;
    FindDeviceDialog::instance(&window)->addPorts({sim.path()}, true);
    // Scans 0 to 3, takes every row; and remembers what a box says.
    QStringList boxes;
    const auto user = [&boxes](QDialog* dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
            boxes << box->text();
            QMetaObject::invokeMethod(box, "accept", Qt::QueuedConnection);
        } else if (auto* find = qobject_cast<FindDeviceDialog*>(dialog)) {
            QMetaObject::invokeMethod(
                find,
                [find]() {
                    find->findChild<QSpinBox*>("spnAddressTo")->setValue(4);
                    find->on_btnStart_clicked();
                    find->findChild<QTableWidget*>()->selectAll();
                    find->accept();
                },
                Qt::QueuedConnection);
        }
    };
    for (int round = 0; round < 2; ++round) {
        ModalAnswerer answerer(user);
        window.find();
    }

    // A new port for the line, the devices identified under their tags; the
    // second search found them in the tree and added nothing.
    QCOMPARE(window.portNames(), QStringList({"P0", "Port_1"}));
    Port* port = window.portBySerialName(sim.path());
    QVERIFY(port);
    QStringList names;
    for (Device* d : port->devices()) {
        names << d->name();
        QVERIFY(d->isIdentified() && window.treeItem(d));
    }
    QCOMPARE(names, QStringList({"TCV-C_{TT-101}", "QP-1C_{PT-102}", "pH-7702_{AT-103}", "General_{FT-104}"}));
    QCOMPARE(port->device(2)->deviceInfo().value("manufacturer_code").toInt(), 0xE0);
    QCOMPARE(boxes.size(), 1);
    QVERIFY2(boxes.at(0).endsWith("were not added again:\nTCV-C_{TT-101} at address 0 of Port_1\n"
                                  "QP-1C_{PT-102} at address 1 of Port_1\npH-7702_{AT-103} at address 2 of Port_1\n"
                                  "General_{FT-104} at address 3 of Port_1"),
             qPrintable(boxes.at(0)));
    QVERIFY(window.isWindowModified());
}
