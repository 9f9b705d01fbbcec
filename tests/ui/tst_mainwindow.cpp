#include "application.h"
#include "appsettings.h"
#include "debugqt.h"
#include "device.h"
#include "finddevicedialog.h"
#include "helpviewer.h"
#include "logwidget.h"
#include "mainwindow.h"
#include "modalanswerer.h"
#include "modelline.h"
#include "port.h"
#include "server.h"
#include "simulatedline.h"
#include "tcv2widget.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTableWidget>
#include <QTreeWidgetItem>
#include <QtTest>

using Ports = QMap<QString, QStringList>; // port name -> "template:tag" of its devices

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid());
        // The data directory is the working directory when the settings are first made.
        QVERIFY(QDir::setCurrent(m_dir.path()));
        DebugQt::instance(0x8ED0007, nullptr);
        AppSettings::instance();
        QCOMPARE(AppSettings::data_dir(), QDir(m_dir.path()).absolutePath());
    }

    void init()
    {
        QVERIFY(QDir(AppSettings::cfg_dir()).removeRecursively() && QDir().mkpath(AppSettings::cfg_dir()));
        m_cfg = writeConfig({{"P0", {"TCV-C:D1"}}});
    }

    void load_data()
    {
        addColumns<Ports, QStringList, QString, unsigned int>({"ports", "flags", "counters", "mask"});
        QTest::newRow("no ports: nothing loads, silent")
            << Ports() << QStringList() << "ports: 0, devices: 0" << 0x8ed0000u;
        QTest::newRow("two ports, three devices, err and info")
            << Ports{{"P0", {"TCV-C:D1", "General:D2"}}, {"P1", {"QP-1C:D3"}}} << QStringList{"ERR", "INFO"}
            << "ports: 2, devices: 3" << 0x8ed0005u;
        QTest::newRow("unknown flags ignored")
            << Ports{{"P0", {}}} << QStringList{"WARN", "DEBUG", "err"} << "ports: 1, devices: 0" << 0x8ed0002u;
    }

    void load()
    {
        QFETCH(Ports, ports);
        QFETCH(QStringList, flags);
        const QString file = writeConfig(ports, {{"log_flags", flags}});
        MainWindow window;
        QTEST(DebugQt::instance(0, nullptr)->flags(), "mask");
        QCOMPARE(window.windowTitle(), "Orvena. Calvane - [*]" + (ports.isEmpty() ? QString("Untitled") : file));
        QTEST(child<QLabel>(window, "labelCounters")->text(), "counters");
        if (ports.contains("P1")) { // the editor follows the model
            QVERIFY(qobject_cast<TCV2Widget*>(window.editor(item(window, "P0/TCV-C_{D1}"))));
            QVERIFY(!qobject_cast<TCV2Widget*>(window.editor(item(window, "P0/General_{D2}"))));
        }
        QVERIFY(!window.isWindowModified());
        QVERIFY(!child<QAction>(window, "actionSave")->isEnabled());
    }

    void backupAtFirstChangeOnly_data()
    {
        // backedUp: a layout change takes no backup of its own
        addColumns<QString, bool>({"change", "backedUp"});
        QTest::newRow("port added") << "add" << true;
        QTest::newRow("port removed") << "remove" << true;
        QTest::newRow("tree cleared") << "new" << true;
        QTest::newRow("splitter moved") << "splitter" << false;
    }

    void backupAtFirstChangeOnly()
    {
        QFETCH(QString, change);
        QFETCH(bool, backedUp);
        const QByteArray saved = readFile(m_cfg);
        const QString backup = m_cfg + ".bak";
        MainWindow window;
        if (change == "add") {
            window.addItem();
        } else if (change == "remove") {
            window.selectItem(window.portByName("P0"));
            window.deleteItem();
        } else if (change == "new") {
            window.newTree(true);
        } else { // what a drag of the handle sends; the window takes it by its name
            emit child<QSplitter>(window, "splitter")->splitterMoved(150, 1);
        }
        QVERIFY(window.isWindowModified());
        QCOMPARE(readFile(backup), backedUp ? saved : QByteArray("<missing>"));
        QVERIFY(child<QAction>(window, "actionSave")->isEnabled());
        // A second change finds the window modified and leaves the backup alone.
        QFile::remove(backup);
        QVERIFY(QFile(backup).open(QIODevice::WriteOnly));
        window.selectItem(window.server());
        window.addItem();
        QCOMPARE(readFile(backup), QByteArray());
    }

    void backupFailureKeepsWindowUnmodified()
    {
        const QString backup = m_cfg + ".bak";
        QVERIFY(QDir().mkpath(backup + "/inside"));
        MainWindow window;
        ModalAnswerer answerer({QMessageBox::Ok});
        window.addItem();
        QCOMPARE(answerer.seen().size(), 1);
        QVERIFY2(answerer.seen().at(0).startsWith(QString("Error|can't remove file '%1', '").arg(backup)),
                 qPrintable(answerer.seen().at(0)));
        QVERIFY(!window.isWindowModified());
        QVERIFY(window.treeItem(window.portByName("Port_1")));
    }

    void failedSaveRestoresFile()
    {
        // A name of 251 characters: its ".bak" fits a file name, and the lock file
        // that every write of the settings takes, name + ".lock", does not. This
        // also holds for root, who may write anywhere.
        m_cfg = writeConfig({{"P0", {}}}, {}, {}, QString(247, QLatin1Char('c')) + ".cfg");
        QVERIFY(!m_cfg.isEmpty());
        const QByteArray saved = readFile(m_cfg);
        MainWindow window;
        window.addItem();
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
        QCOMPARE(readFile(m_cfg + ".bak"), saved);
        QVERIFY(window.isWindowModified());
    }

    void saveWithoutNameGoesToSaveAs_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::newRow("new file") << false;
        QTest::newRow("over a file") << true;
    }

    void saveWithoutNameGoesToSaveAs()
    {
        QFETCH(bool, exists);
        const QString chosen = AppSettings::cfg_dir() + "/chosen.cfg";
        QFile old(chosen);
        QVERIFY(!exists || (old.open(QIODevice::WriteOnly) && old.write("{\"old\": 1}") == 10));
        old.close();
        MainWindow window;
        window.addItem();
        AppSettings::set_cfg_fn(QString());
        // The file, and for one that exists, Yes to replace it.
        ModalAnswerer answerer(exists ? QVariantList{chosen, QMessageBox::Yes} : QVariantList{chosen});
        QVERIFY(window.save());
        QCOMPARE(answerer.seen().value(0), QString("Save As..|file"));
        QCOMPARE(AppSettings::cfg_fn(), chosen);
        QVERIFY(window.windowTitle().endsWith("[*]" + chosen));
        QVERIFY(!window.isWindowModified());
        QVERIFY(!QFile::exists(chosen + ".bak"));
        const QVariantMap written = QJsonDocument::fromJson(readFile(chosen)).toVariant().toMap();
        QCOMPARE(written.value("srv").toMap().value("ports").toList().size(), 2);
        QCOMPARE(written.value("old"), exists ? QVariant(1) : QVariant());
    }

    void closeAsks_data()
    {
        addColumns<bool, int, bool, QStringList>({"modified", "answer", "closes", "asked"});
        const QStringList exit{"Calvane|Are you sure you want to exit the application ?"};
        const QStringList save{"Calvane|Configuration has been modified.\nDo you want to save your changes?"};
        QTest::newRow("unmodified, cancel") << false << int(QMessageBox::Cancel) << false << exit;
        QTest::newRow("unmodified, yes") << false << int(QMessageBox::Yes) << true << exit;
        QTest::newRow("modified, no") << true << int(QMessageBox::No) << true << save;
        QTest::newRow("modified, cancel") << true << int(QMessageBox::Cancel) << false << save;
    }

    void closeAsks()
    {
        QFETCH(bool, modified);
        QFETCH(int, answer);
        QFETCH(bool, closes);
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        if (modified)
            window.addItem();
        QSignalSpy closing(&window, &MainWindow::closeApplication);
        ModalAnswerer answerer({answer});
        QCOMPARE(window.close(), closes);
        QTEST(answerer.seen(), "asked");
        QCOMPARE(closing.size(), closes ? 1 : 0);
        QCOMPARE(window.isVisible(), !closes);
    }

    void actionsFollowSelection_data()
    {
        // enabled: the actions add, remove, save as template and test
        addColumns<QString, bool, int, QList<bool>>({"select", "identified", "tagState", "enabled"});
        const QString device = "P0/TCV-C_{D1}";
        QTest::newRow("root") << "" << false << 1 << QList<bool>{true, false, false, false};
        QTest::newRow("port") << "P0" << false << 1 << QList<bool>{true, true, false, false};
        QTest::newRow("port with archived device") << "P0" << true << 0x40 << QList<bool>{true, false, false, false};
        QTest::newRow("port with polled device") << "P0" << true << 0x10 << QList<bool>{true, true, false, false};
        QTest::newRow("device not identified") << device << false << 1 << QList<bool>{false, true, true, false};
        QTest::newRow("device identified") << device << true << 4 << QList<bool>{false, true, true, true};
        QTest::newRow("device polled") << device << true << 0x14 << QList<bool>{false, false, true, false};
        QTest::newRow("device archived") << device << true << 0x40 << QList<bool>{false, false, true, false};
        QTest::newRow("nothing selected") << "none" << false << 1 << QList<bool>{false, false, false, false};
    }

    void actionsFollowSelection()
    {
        QFETCH(QString, select);
        QFETCH(bool, identified);
        QFETCH(int, tagState);
        writeConfig({{"P0", {"TCV-C:D1"}}}, {},
                    identified ? QVariantMap{{"deviceID", "0x12h 0x34h 0x56h"}} : QVariantMap());
        MainWindow window;
        auto* d = static_cast<Device*>(item(window, "P0/TCV-C_{D1}"));
        QCOMPARE(d->hartDeviceID().isEmpty(), !identified);
        d->setDeviceTagState(tagState);
        window.selectItem(item(window, select));
        window.updateActions();
        QList<bool> enabled;
        for (const char* action : {"actionAdd", "actionRemove", "actionSaveAsTemplate", "actionTest"})
            enabled << child<QAction>(window, action)->isEnabled();
        QTEST(enabled, "enabled");
    }

    void selectionRestored_data()
    {
        // The current item as saved, or empty when the window saves it itself;
        // the item selected after loading, empty when the root stays selected.
        addColumns<QString, QString>({"current", "expected"});
        QTest::newRow("port under the root") << "Ports_&_Devices/P1" << QString("P1");
        QTest::newRow("device under its port") << "P0/TCV-C_{D1}" << QString("P0/TCV-C_{D1}");
        QTest::newRow("bare port name") << "P1" << QString("P1");
        QTest::newRow("the root itself") << "serverRoot/Ports_&_Devices" << QString();
        QTest::newRow("unknown device") << "P0/TCV-C_{D9}" << QString();
        QTest::newRow("port name holds /") << "Ports_&_Devices/a/b" << QString();
        QTest::newRow("device name holds /") << "P1/General_{x/y}" << QString();
        QTest::newRow("saved as parent and name") << "" << QString("P0/TCV-C_{D1}");
    }

    void selectionRestored()
    {
        QFETCH(QString, current);
        QFETCH(QString, expected);
        m_cfg = writeConfig({{"P0", {"TCV-C:D1"}}, {"P1", {"General:x/y"}}, {"a/b", {"QP-1C:D2"}}},
                            {{"current_item", current}});
        if (current.isEmpty()) {
            MainWindow window;
            window.selectItem(item(window, expected));
            QVERIFY(window.save());
            const QVariantMap app = QJsonDocument::fromJson(readFile(m_cfg)).toVariant().toMap().value("app").toMap();
            QCOMPARE(app.value("current_item").toString(), expected);
        }
        MainWindow window;
        QCoreApplication::processEvents(); // the restoring waits for the event loop
        QVERIFY(item(window, expected));
        QCOMPARE(window.currentServerItem(), item(window, expected));
    }

    void deviceTreeRules_data()
    {
        // results: the result codes of operations on the device
        addColumns<bool, int, QList<int>, QString, QString, bool, QColor>(
            {"identified", "tagState", "results", "comment", "text", "bold", "colour"});
        const QColor black(Qt::black), red(Qt::red), green(Qt::darkGreen);
        const QString none;
        QTest::newRow("new") << false << 1 << QList<int>() << none << "%1 " << false << black;
        QTest::newRow("read well") << true << 4 << QList<int>{1} << none << "%1 [>]" << true << green;
        QTest::newRow("written well") << true << 8 << QList<int>{1} << none << "%1 [<]" << true << green;
        QTest::newRow("read, then a failure") << true << 4 << QList<int>{1, 5} << none << "%1 [>]" << true << red;
        QTest::newRow("failure, then read well") << true << 4 << QList<int>{4, 1} << none << "%1 [>]" << true << red;
        QTest::newRow("read mark, nothing tried") << true << 4 << QList<int>() << none << "%1 [>]" << true << black;
        QTest::newRow("failure without read or write")
            << false << 1 << QList<int>{4} << none << "%1 " << false << black;
        QTest::newRow("marked, polled, comment")
            << false << 0x30 << QList<int>() << QString("note") << "+%1 [@]note" << false << black;
        QTest::newRow("every mark") << true << 0x5e << QList<int>{1} << none << "%1 [>*<@!]" << true << green;
    }

    void deviceTreeRules()
    {
        QFETCH(bool, identified);
        QFETCH(int, tagState);
        QFETCH(QList<int>, results);
        QFETCH(QString, comment);
        QFETCH(QString, text);
        QVariantMap device{{"comment", comment}};
        if (identified)
            device.insert("deviceID", "0x01h 0x02h 0x03h");
        writeConfig({{"P0", {"General:D1"}}}, {}, device);
        MainWindow window;
        auto* d = static_cast<Device*>(item(window, "P0/General_{D1}"));
        d->setDeviceTagState(tagState);
        for (int code : results)
            d->updateState(code);
        window.updateDeviceStatusInTree(d);
        QTreeWidgetItem* entry = window.treeItem(d);
        QCOMPARE(entry->text(0), text.arg(d->name()));
        QTEST(entry->font(0).bold(), "bold");
        QTEST(entry->foreground(0).color(), "colour");
    }

    void factoryNumberNeedsModelDevice_data()
    {
        // select: a port or port/device, empty for the root
        addColumns<QString, QString>({"select", "seen"});
        const QString ours = "Calvane|Select an instrument of our maker to write its factory number.";
        QTest::newRow("root") << "" << ours;
        QTest::newRow("port") << "P0" << ours;
        QTest::newRow("generic device") << "P0/General_{G1}"
                                        << QString("Calvane|The device General_{G1} has no factory number.");
        QTest::newRow("model device") << "P0/TCV-C_{D1}" << QString("Factory number|FactoryNumberDialog");
    }

    void factoryNumberNeedsModelDevice()
    {
        QFETCH(QString, select);
        QFETCH(QString, seen);
        writeConfig({{"P0", {"TCV-C:D1", "General:G1"}}});
        MainWindow window;
        window.selectItem(item(window, select));
        QAction* action = child<QAction>(window, "actionFactoryNumber");
        QCOMPARE(action->shortcut(), QKeySequence("Ctrl+Shift+F"));
        ModalAnswerer answerer({QMessageBox::Ok});
        action->trigger();
        QCOMPARE(answerer.seen(), QStringList{seen});
        QVERIFY(!window.isWindowModified()); // nothing was written
    }

    void findAddsDevicesOnce()
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
        QString names;
        for (Device* d : port->devices()) {
            names += QString("\n%1 at address %2 of Port_1").arg(d->name()).arg(d->address());
            QVERIFY(d->isIdentified() && window.treeItem(d));
        }
        QCOMPARE(port->device(2)->deviceInfo().value("manufacturer_code").toInt(), 0xE0);
        QCOMPARE(boxes.size(), 1);
        QVERIFY2(boxes.at(0).endsWith("were not added again:" + names), qPrintable(boxes.at(0)));
        QCOMPARE(names, "\nTCV-C_{TT-101} at address 0 of Port_1\nQP-1C_{PT-102} at address 1 of Port_1\n"
                        "pH-7702_{AT-103} at address 2 of Port_1\nGeneral_{FT-104} at address 3 of Port_1");
        QVERIFY(window.isWindowModified());
    }

    // The log panel breaks lines at each "***" past the first character and
    // keeps its last so many lines; Save As writes them in UTF-8.
    void logPanel_data()
    {
        // The search buttons work with a text only.
        addColumns<QString, int, QStringList, QString>({"search", "limit", "messages", "shown"});
        QStringList lines;
        for (int i = 1; i <= 101; ++i)
            lines << QString::number(i);
        QTest::newRow("no mark") << "" << 100 << QStringList{"TX 82 a6"} << "TX 82 a6";
        QTest::newRow("every mark inside breaks") << "b" << 100 << QStringList{"a*** b*** c"} << "a\n*** b\n*** c";
        QTest::newRow("mark first: as it stands") << "*" << 100 << QStringList{"*** a*** b"} << "*** a*** b";
        QTest::newRow("broken lines count") << "" << 2 << QStringList{"a*** b", "c"} << "*** b\nc";
        QTest::newRow("100 lines kept") << "100" << 100 << lines.mid(0, 100) << lines.mid(0, 100).join('\n');
        QTest::newRow("101st drops the 1st") << "" << 100 << lines << lines.mid(1).join('\n');
        QTest::newRow("saved in UTF-8") << "нет" << 100 << QStringList{"ошибка*** нет"} << "ошибка\n*** нет";
    }

    void logPanel()
    {
        QFETCH(QString, search);
        QFETCH(int, limit);
        QFETCH(QStringList, messages);
        QFETCH(QString, shown);
        LogWidget log;
        log.setLinesCount(limit);
        for (const QString& message : messages)
            log.appendLogMessage(0, message);
        QCOMPARE(log.findChild<QPlainTextEdit*>()->toPlainText(), shown);
        const QString name = m_dir.filePath("hart.log");
        QFile::remove(name);
        ModalAnswerer answerer({name});
        log.findChild<QPushButton*>("btnSaveAs")->click();
        QCOMPARE(QString::fromUtf8(readFile(name)), shown);
        auto* field = log.findChild<QLineEdit*>("txtSearch");
        field->setText("x");
        field->setText(search);
        QCOMPARE(log.findChild<QPushButton*>("btnSearchUp")->isEnabled(), !search.isEmpty());
        QCOMPARE(log.findChild<QPushButton*>("btnSearchDown")->isEnabled(), !search.isEmpty());
    }

    // The root's page is the manual in the language of the interface, the
    // Russian one CP-1251, the English one UTF-8; the status bar shows the
    // project's version in either. A help file that cannot be opened is said.
    // Last: the translators it loads stay for the rest of the process.
    void manualAndVersionFollowLanguage()
    {
        Application::loadTranslations(QStringLiteral(":/lang"));
        MainWindow window;
        auto* manual = qobject_cast<HelpViewer*>(window.editor(window.server()));
        QVERIFY(manual);
        for (const QString language : {"ru_RU", "en_US"}) {
            Application::setLanguage(language);
            const bool english = language == "en_US";
            QTRY_COMPARE(manual->text().section('\n', 0, 0),
                         english ? "CALVANE - HART DEVICE CONFIGURATOR" : "CALVANE — КОНФИГУРАТОР HART-ПРИБОРОВ");
            QTRY_COMPARE(child<QLabel>(window, "labelVersion")->text(),
                         QString(english ? "Version: %1" : "Версия: %1").arg(CALVANE_VERSION));
        }
        auto* text = manual->findChild<QPlainTextEdit*>();
        text->moveCursor(QTextCursor::End);
        manual->setContentFromFile(m_dir.filePath("missing.txt"));
        QCOMPARE(manual->text(), QString("Can't open help file"));
        QCOMPARE(text->textCursor().position(), 0);
        QVERIFY(text->isReadOnly());
    }

private:
    // Writes the configuration file (and the pointer file naming it) with the
    // ports at polling address 0; a device is named "<template>_{<tag>}" when
    // it loads. The device entries take the values of device too, "deviceID"
    // among their parameters.
    QString writeConfig(const Ports& ports, const QVariantMap& app = {}, const QVariantMap& device = {},
                        const QString& baseName = "test.cfg")
    {
        QVariantList portList;
        for (auto it = ports.constBegin(); it != ports.constEnd(); ++it) {
            QVariantList devices;
            for (const QString& entry : it.value()) {
                QVariantMap parameters{{"tag", entry.section(':', 1)}};
                QVariantMap map{{"name", QString()}, {"template", entry.section(':', 0, 0)}, {"polling_address", 0}};
                for (auto value = device.constBegin(); value != device.constEnd(); ++value)
                    (value.key() == "deviceID" ? parameters : map).insert(value.key(), value.value());
                map.insert("parameters", parameters);
                devices << map;
            }
            portList << QVariantMap{{"name", it.key()}, {"devices", devices}};
        }
        const QString name = AppSettings::cfg_dir() + '/' + baseName;
        const QVariantMap config{{"srv", QVariantMap{{"ports", portList}}}, {"app", app}};
        QFile file(name);
        QFile pointer(AppSettings::startup_cfg_fn());
        if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument::fromVariant(config).toJson()) < 0 ||
            !pointer.open(QIODevice::WriteOnly))
            return QString();
        pointer.write(QJsonDocument::fromVariant(QVariantMap{{"cfg_filename", name}}).toJson());
        return name;
    }
    static QByteArray readFile(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }
    // The item of the tree at "port" or "port/device"; the root for an empty path.
    static ServerItem* item(MainWindow& window, const QString& path)
    {
        if (path.isEmpty())
            return window.server();
        Port* port = window.portByName(path.section('/', 0, 0));
        return port && path.contains(QLatin1Char('/')) ? static_cast<ServerItem*>(port->device(path.section('/', 1)))
                                                       : port;
    }
    template <typename T>
    static T* child(MainWindow& window, const char* name)
    {
        return window.findChild<T*>(QLatin1String(name));
    }

    QTemporaryDir m_dir;
    QString m_cfg;
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
