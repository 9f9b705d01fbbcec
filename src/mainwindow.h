#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QList>
#include <QMainWindow>
#include <QMap>
#include <QMessageBox>
#include <QStringList>
#include <QVariantMap>

class AppSettings;
class Device;
class Port;
class QComboBox;
class QLabel;
class QTreeWidgetItem;
class Server;
class ServerItem;

namespace Ui {
class MainWindow;
}

// The program's window: the tree of ports and devices on the left of a
// splitter, the page of the selected item on the right in a stack. It owns
// the Server, loads and saves the configuration file (with a backup of the
// saved file taken at the first change after a save, and put back when a
// save fails), tracks the modified state in Qt's window-modified flag, keeps
// the actions in step with the selection, and starts the dialogs.
//
// Each tree item keeps its ServerItem* in column 0 under Qt::UserRole.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // For the other widgets.
    QStringList portNames() const;
    Port* portByName(const QString& name) const;
    Port* portBySerialName(const QString& serialName) const;
    QList<Port*> ports() const;

    // The visible root, under which the ports are listed.
    Server* server() const { return m_server; }
    QTreeWidgetItem* treeItem(ServerItem* item) const { return m_treeItems.value(item, nullptr); }
    QWidget* editor(ServerItem* item) const { return m_editors.value(item, nullptr); }
    ServerItem* currentServerItem() const;
    // Makes the item's tree entry current; null clears the selection.
    void selectItem(ServerItem* item);

    // Loads another configuration file in place of the present tree.
    bool loadConfigFile(const QString& fileName);
    // Copies the configuration file to its ".bak"; an absent file is no failure.
    bool backupConfigFile();
    // Puts the ".bak" back in place of the configuration file.
    bool rollbackBackupConfigFile();
    // Writes the tree and the settings to the file, which becomes the file in use.
    bool saveConfigFile(const QString& fileName);
    // The tree changed: the first change after a save backs the file up.
    void serverModified();
    void updateActions();
    void updateStatusBar();
    void updateDeviceStatusInTree(Device* device);
    void updateServerStatusInTree(bool modified);

public slots:
    void newTree();
    void newTree(bool noQuestion);
    void open();
    bool save();
    bool saveWithQuestion();
    bool saveAs();
    void addItem();
    void deleteItem();
    void changeSettings();
    void help();
    void find();
    void testDevice();
    void saveFactoryNumber();
    void currentTreeWidgetItemChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous);
    void onLangSelectorIndexChanged(int index);
    void onServerLoaded();
    void onChanged();
    void on_splitter_splitterMoved(int pos, int index);
    void onFirstEvent();

signals:
    void saveSelected();
    void firstEvent();
    void closeApplication();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void connectActions();
    void createServer();
    void createStatusBar();
    void fillLanguages();
    void loadConfig();
    bool loadConfigData();
    void applyAppSettings();
    void setCurrentFile(const QString& fileName);
    void updateWindowTitle();
    bool okToContinue(bool exitQuestion);
    // A warning box with the window's title; Cancel is the escape. The
    // button pressed.
    int question(const QString& text, QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton);
    void resetAllDeviceStatusAfterSave();
    QString backupFileName() const;

    QTreeWidgetItem* addPortInTree(Port* port, bool select);
    QTreeWidgetItem* addDeviceInTree(Port* port, Device* device, bool select);
    // The page that edits a device, chosen by its template.
    QWidget* createDeviceEditor(Device* device);
    // True, with a word in the status bar, while an editor talks to its device.
    bool exchangeRunning();
    // Shows the item's present values again on its page.
    void refreshEditor(ServerItem* item);
    void addEditor(ServerItem* item, QWidget* editor);
    void removeEditor(ServerItem* item);
    void removeDevice(Device* device);
    void removePort(Port* port);
    // Adds the devices that a search found, each to the port of its line (a
    // new port where none has that line); a device whose port holds its
    // polling address already is left out, and the user told.
    void addFoundDevices(const QList<QVariantMap>& selection);
    ServerItem* itemOf(QTreeWidgetItem* treeItem) const;
    // The item whose page sent the signal now running, else the current one.
    ServerItem* senderItem() const;

    Ui::MainWindow* ui;
    AppSettings* m_settings;
    Server* m_serverRoot = nullptr; // hidden, holds the visible root
    Server* m_server = nullptr;     // visible root, "Ports & Devices"
    QLabel* m_versionLabel = nullptr;
    QLabel* m_countersLabel = nullptr;
    QComboBox* m_languageCombo = nullptr;
    QString m_currentFile;
    QString m_appTitle;
    QString m_longAppTitle;
    QMap<ServerItem*, QTreeWidgetItem*> m_treeItems;
    QMap<ServerItem*, QWidget*> m_editors;
};

#endif // MAINWINDOW_H
