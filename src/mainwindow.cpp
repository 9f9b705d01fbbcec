#include "mainwindow.h"

#include "application.h"
#include "appsettings.h"
#include "debugqt.h"
#include "defaultdevicewidget.h"
#include "device.h"
#include "deviceadddialog.h"
#include "factorynumberdialog.h"
#include "finddevicedialog.h"
#include "helpviewer.h"
#include "measurewidget.h"
#include "ph77widget.h"
#include "port.h"
#include "qp1widget.h"
#include "rtuporteditor.h"
#include "server.h"
#include "serveritem.h"
#include "settingsdialog.h"
#include "tcv2widget.h"
#include "testdevicedialog.h"
#include "ui_mainwindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTreeWidgetItem>

namespace {

// The project's version, set once in the build.
const char* const ProgramVersion = CALVANE_VERSION;
const char* const HelpFile = ":/doc/calvane.txt";
const char* const EnglishHelpFile = ":/doc/calvane_en.txt";
const char* const AppIcon = ":/ico/calvane.png";

// The manual in the language of the interface: English for English, the
// Russian one otherwise.
QString helpFile()
{
    const bool english = Application::language().startsWith(QLatin1String("en"), Qt::CaseInsensitive);
    return QString::fromLatin1(english ? EnglishHelpFile : HelpFile);
}

// Base of the log mask once the window runs: every show flag but the date and
// the heap use; the levels come from the settings.
const unsigned int LogMaskBase = 0x8ed0000;

// Device state bits of the tree: 0x20 puts a "+" before the name.
const int TagStateMarked = 0x20;

QString fileFilter()
{
    return QCoreApplication::translate("MainWindow", "Configuration files (*.cfg);;All files (*)");
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), ui(new Ui::MainWindow), m_settings(AppSettings::instance())
{
    qRegisterMetaType<ServerItem*>("ServerItem*");

    ui->setupUi(this);
    setWindowIcon(QIcon(QString::fromLatin1(AppIcon)));
    // The size of a first start, room for a device editor beside the tree on
    // a 1280x800 screen; a stored geometry replaces it.
    resize(QSize(1240, 740).boundedTo(screen()->availableGeometry().size()));
    // The factory number has no menu entry: its chord works anywhere in the window.
    addAction(ui->actionFactoryNumber);
    ui->actionFactoryNumber->setShortcutContext(Qt::WindowShortcut);
    connectActions();
    createServer();
    updateWindowTitle();

    ui->mainTabWidget->setCurrentIndex(0);
    ui->treeWidget->header()->hide();
    ui->splitter->setStretchFactor(0, 0);
    ui->splitter->setStretchFactor(1, 5);
    connect(ui->treeWidget, &QTreeWidget::currentItemChanged, this, &MainWindow::currentTreeWidgetItemChanged);

    createStatusBar();
    connect(m_server, &Server::loaded, this, &MainWindow::onServerLoaded);

    loadConfig();
    // A configuration without ports loads nothing, and nothing selects the root.
    if (!ui->treeWidget->currentItem())
        selectItem(m_server);
    updateActions();
    updateStatusBar();

    // The selection of the last save is restored once the event loop runs.
    connect(this, &MainWindow::firstEvent, this, &MainWindow::onFirstEvent, Qt::QueuedConnection);
    emit firstEvent();
}

MainWindow::~MainWindow()
{
    // The pages and the tree point into the server: take them down first.
    disconnect(ui->treeWidget, nullptr, this, nullptr);
    const QList<ServerItem*> items = m_editors.keys();
    for (ServerItem* item : items)
        removeEditor(item);
    ui->treeWidget->clear();
    m_treeItems.clear();
    delete m_serverRoot;
    delete ui;
}

// ---------------------------------------------------------------------------
// Construction

void MainWindow::connectActions()
{
    connect(ui->actionNew, &QAction::triggered, this, qOverload<>(&MainWindow::newTree));
    connect(ui->actionOpen, &QAction::triggered, this, &MainWindow::open);
    connect(ui->actionSave, &QAction::triggered, this, &MainWindow::saveWithQuestion);
    connect(ui->actionSaveAs, &QAction::triggered, this, &MainWindow::saveAs);
    connect(ui->actionExit, &QAction::triggered, this, &QWidget::close);
    connect(ui->actionAdd, &QAction::triggered, this, &MainWindow::addItem);
    connect(ui->actionRemove, &QAction::triggered, this, &MainWindow::deleteItem);
    connect(ui->actionSettings, &QAction::triggered, this, &MainWindow::changeSettings);
    connect(ui->actionHelp, &QAction::triggered, this, &MainWindow::help);
    connect(ui->actionFind, &QAction::triggered, this, &MainWindow::find);
    connect(ui->actionTest, &QAction::triggered, this, &MainWindow::testDevice);
    connect(ui->actionFactoryNumber, &QAction::triggered, this, &MainWindow::saveFactoryNumber);
    // actionCopy, actionPaste and actionSaveAsTemplate have no function yet.
}

void MainWindow::createServer()
{
    m_serverRoot = new Server;
    m_serverRoot->setName(QStringLiteral("serverRoot"));
    m_server = new Server;
    m_server->setName(tr("Ports & Devices"));
    m_serverRoot->insertChild(0, m_server);

    // The caption keeps its blanks; the item's name has them as "_".
    auto* root = new QTreeWidgetItem(ui->treeWidget, QStringList(tr("Ports & Devices")));
    root->setData(0, Qt::UserRole, QVariant::fromValue<ServerItem*>(m_server));
    root->setExpanded(true);
    m_treeItems.insert(m_server, root);

    // The root's page is the manual.
    auto* manual = new HelpViewer(nullptr, false);
    manual->setWindowFlags(Qt::Widget);
    manual->setContentFromFile(helpFile());
    // A page of the window has nothing to close.
    if (auto* close = manual->findChild<QPushButton*>(QStringLiteral("btnClose")))
        close->hide();
    addEditor(m_server, manual);
}

void MainWindow::createStatusBar()
{
    m_versionLabel = new QLabel(tr("Version: %1").arg(QString::fromLatin1(ProgramVersion)), this);
    m_versionLabel->setObjectName(QStringLiteral("labelVersion"));
    statusBar()->addPermanentWidget(m_versionLabel);

    m_countersLabel = new QLabel(this);
    m_countersLabel->setObjectName(QStringLiteral("labelCounters"));
    m_countersLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_countersLabel->setIndent(50);
    statusBar()->addPermanentWidget(m_countersLabel);

    m_languageCombo = new QComboBox(this);
    m_languageCombo->setObjectName(QStringLiteral("comboLanguage"));
    fillLanguages();
    statusBar()->addPermanentWidget(m_languageCombo);
    connect(m_languageCombo, &QComboBox::currentIndexChanged, this, &MainWindow::onLangSelectorIndexChanged);
}

void MainWindow::fillLanguages()
{
    const QSignalBlocker blocker(m_languageCombo);
    m_languageCombo->clear();
    QStringList codes = Application::availableLanguages();
    codes.sort();
    for (const QString& code : codes)
        m_languageCombo->addItem(QLocale::languageToString(QLocale(code).language()), code);
    m_languageCombo->setCurrentIndex(
        m_languageCombo->findData(m_settings->language, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

// ---------------------------------------------------------------------------
// Configuration

void MainWindow::loadConfig()
{
    m_settings->load();
    loadConfigData();
    applyAppSettings();
}

bool MainWindow::loadConfigData()
{
    const bool ok = m_server->load(m_settings->serverData);
    if (ok)
        setCurrentFile(AppSettings::cfg_fn());
    return ok;
}

void MainWindow::onServerLoaded()
{
    const QList<Port*> list = m_server->ports();
    for (Port* port : list) {
        addPortInTree(port, false);
        const QList<Device*> devices = port->devices();
        for (Device* device : devices)
            addDeviceInTree(port, device, false);
    }
    selectItem(m_server);
    updateActions();
    updateStatusBar();
}

void MainWindow::onFirstEvent()
{
    const QString name = m_settings->currentItemName;
    if (name.isEmpty())
        return;
    // The saved form is the parent's name, "/", the item's name: with another
    // "/" in it, the names cannot be told apart, and nothing is restored.
    if (name.count(QLatin1Char('/')) > 1) {
        DBG(LevelWarn) << "current item not restored, a name holds '/':" << name;
        return;
    }
    const QList<Port*> list = m_server->ports();
    ServerItem* hit = nullptr;
    for (Port* port : list) {
        if (name == port->name()) {
            hit = port;
            break;
        }
    }
    for (int k = 0; !hit && k < list.size(); ++k) {
        const QList<Device*> devices = list.at(k)->devices();
        for (Device* device : devices) {
            if (name == list.at(k)->name() + QLatin1Char('/') + device->name()) {
                hit = device;
                break;
            }
        }
    }
    for (int k = 0; !hit && k < list.size(); ++k) {
        if (name == m_server->name() + QLatin1Char('/') + list.at(k)->name())
            hit = list.at(k);
    }
    if (hit)
        selectItem(hit);
    else
        DBG(LevelInfo) << "current item not found:" << name;
}

void MainWindow::applyAppSettings()
{
    unsigned int mask = LogMaskBase;
    for (const QString& level : std::as_const(m_settings->log_flags)) {
        if (level == QLatin1String("ERR"))
            mask |= DebugQt::LevelErr;
        else if (level == QLatin1String("WARN"))
            mask |= DebugQt::LevelWarn;
        else if (level == QLatin1String("INFO"))
            mask |= DebugQt::LevelInfo;
    }
    DebugQt::instance(0x8ed0003, nullptr)->set_flags(mask);

    Application::setLanguage(m_settings->language);
    {
        const QSignalBlocker blocker(m_languageCombo);
        m_languageCombo->setCurrentIndex(
            m_languageCombo->findData(m_settings->language, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
    }

    if (!m_settings->splitter.isEmpty())
        ui->splitter->restoreState(m_settings->splitter);
    if (!m_settings->geometry.isEmpty())
        restoreGeometry(m_settings->geometry);

    if (m_settings->font.family().isEmpty()) {
        DBG(LevelInfo) << "default font" << font().family();
        m_settings->font = font();
    }
    setFont(m_settings->font);

    // The HART master role of every line.
    m_server->setPrimaryMaster(m_settings->bPrimaryMaster);
}

void MainWindow::setCurrentFile(const QString& fileName)
{
    AppSettings::set_cfg_fn(fileName);
    setWindowModified(false);
    updateServerStatusInTree(false);
    m_currentFile = AppSettings::cfg_fn();
    updateWindowTitle();
}

void MainWindow::updateWindowTitle()
{
    m_appTitle = tr("Calvane");
    m_longAppTitle = tr("Orvena. ") + m_appTitle;
    const QString shown = m_currentFile.isEmpty() ? tr("Untitled") : m_currentFile;
    setWindowTitle(tr("%1 - [*]%2").arg(m_longAppTitle, shown));
}

void MainWindow::updateStatusBar()
{
    m_countersLabel->setText(tr("ports: %1, devices: %2").arg(m_server->portCount()).arg(m_server->deviceCount()));
}

void MainWindow::serverModified()
{
    // The first change after a save keeps the saved file as it was.
    if (!isWindowModified() && !backupConfigFile())
        return;
    setWindowModified(true);
    updateServerStatusInTree(true);
    updateActions();
    updateStatusBar();
}

void MainWindow::onChanged()
{
    // Set first: an edit on a page takes no backup of its own.
    setWindowModified(true);
    ServerItem* item = senderItem();
    if (item && item->type() == ServerItem::TypePort) {
        if (QTreeWidgetItem* entry = treeItem(item))
            entry->setText(0, item->name());
    } else if (item && item->type() == ServerItem::TypeDevice) {
        updateDeviceStatusInTree(static_cast<Device*>(item));
    }
    serverModified();
}

QString MainWindow::backupFileName() const
{
    return AppSettings::cfg_fn() + QStringLiteral(".bak");
}

bool MainWindow::backupConfigFile()
{
    const QString fileName = AppSettings::cfg_fn();
    if (fileName.isEmpty())
        return false;
    const QString backup = backupFileName();
    if (QFileInfo::exists(backup)) {
        QFile old(backup);
        if (!old.remove()) {
            DBG(LevelErr) << "cannot remove" << backup << old.errorString();
            QMessageBox::critical(this, tr("Error"), tr("can't remove file '%1', '%2'").arg(backup, old.errorString()));
            return false;
        }
    }
    if (QFileInfo::exists(fileName)) {
        QFile file(fileName);
        if (!file.copy(backup)) {
            DBG(LevelErr) << "cannot copy" << fileName << "to" << backup << file.errorString();
            QMessageBox::critical(this, tr("Backup config file"),
                                  tr("can't copy file '%1' to '%2', '%3'").arg(fileName, backup, file.errorString()));
            return false;
        }
    }
    return true;
}

bool MainWindow::rollbackBackupConfigFile()
{
    const QString fileName = AppSettings::cfg_fn();
    if (fileName.isEmpty())
        return false;
    const QString backup = backupFileName();
    if (!QFileInfo::exists(backup)) {
        QMessageBox::critical(this, tr("Error"), tr("backup file '%1' not exists!").arg(backup));
        return false;
    }
    QFile::remove(fileName);
    QFile file(backup);
    if (!file.copy(fileName)) {
        DBG(LevelErr) << "cannot copy" << backup << "to" << fileName << file.errorString();
        QMessageBox::critical(this, tr("Rollback config file"),
                              tr("can't copy file '%1' to '%2', '%3'").arg(backup, fileName, file.errorString()));
        return false;
    }
    return true;
}

bool MainWindow::saveConfigFile(const QString& fileName)
{
    m_settings->serverData = m_server->save();
    m_settings->geometry = saveGeometry();
    m_settings->splitter = ui->splitter->saveState();
    if (ServerItem* item = currentServerItem()) {
        const QString parentName = item->parentItem() ? item->parentItem()->name() : QString();
        m_settings->currentItemName = parentName + QLatin1Char('/') + item->name();
    }
    AppSettings::set_cfg_fn(fileName);
    if (!m_settings->save()) {
        QMessageBox::critical(this, m_appTitle, tr("Config file write error!"));
        return false;
    }
    return true;
}

bool MainWindow::save()
{
    const QString fileName = AppSettings::cfg_fn();
    if (fileName.isEmpty())
        return saveAs();
    if (!backupConfigFile())
        return false;
    if (!saveConfigFile(fileName)) {
        rollbackBackupConfigFile();
        return false;
    }
    setCurrentFile(fileName);
    updateActions();
    resetAllDeviceStatusAfterSave();
    statusBar()->showMessage(tr("Configuration saved on %1").arg(QDateTime::currentDateTime().toString(Qt::TextDate)));
    return true;
}

bool MainWindow::saveWithQuestion()
{
    if (question(tr("Do you want to save your configuration?"),
                 QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes) != QMessageBox::Yes)
        return false;
    return save();
}

bool MainWindow::saveAs()
{
    const QString previous = AppSettings::cfg_fn();
    const QString dir = !previous.isEmpty() && QFileInfo::exists(previous) ? QFileInfo(previous).absolutePath()
                                                                           : AppSettings::cfg_dir();
    const QString chosen = QFileDialog::getSaveFileName(this, tr("Save As.."), dir, fileFilter());
    if (chosen.isEmpty())
        return false;
    const bool ok = saveConfigFile(chosen);
    if (ok) {
        setCurrentFile(chosen);
        resetAllDeviceStatusAfterSave();
        statusBar()->showMessage(tr("Configuration saved on %1 in file %2")
                                     .arg(QDateTime::currentDateTime().toString(Qt::TextDate), chosen));
    } else {
        // The file that could not be written does not become the file in use.
        AppSettings::set_cfg_fn(previous);
    }
    updateActions();
    return ok;
}

bool MainWindow::okToContinue(bool exitQuestion)
{
    // An exchange under way uses the tree; it ends first.
    if (exchangeRunning())
        return false;
    if (isWindowModified()) {
        const int answer = question(tr("Configuration has been modified.\nDo you want to save your changes?"),
                                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
        if (answer == QMessageBox::Yes)
            return save();
        return answer == QMessageBox::No;
    }
    if (!exitQuestion)
        return true;
    return question(tr("Are you sure you want to exit the application ?"), QMessageBox::Yes | QMessageBox::Cancel,
                    QMessageBox::Cancel) != QMessageBox::Cancel;
}

int MainWindow::question(const QString& text, QMessageBox::StandardButtons buttons,
                         QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(QMessageBox::Warning, m_appTitle, text, buttons, this);
    box.setDefaultButton(defaultButton);
    box.setEscapeButton(QMessageBox::Cancel);
    return box.exec();
}

void MainWindow::resetAllDeviceStatusAfterSave()
{
    // What the file keeps is what the tree shows now.
    const QList<Port*> list = m_server->ports();
    for (Port* port : list) {
        const QList<Device*> devices = port->devices();
        for (Device* device : devices)
            updateDeviceStatusInTree(device);
    }
}

void MainWindow::newTree()
{
    newTree(false);
}

void MainWindow::newTree(bool noQuestion)
{
    if (!noQuestion && !okToContinue(false))
        return;
    selectItem(m_server);
    const QList<Port*> list = m_server->ports();
    for (Port* port : list)
        removePort(port);
    serverModified();
    updateActions();
}

void MainWindow::open()
{
    if (!okToContinue(false))
        return;
    const QString name = QFileDialog::getOpenFileName(this, tr("Open cfg.."), AppSettings::cfg_dir(), fileFilter());
    if (name.isEmpty())
        return;
    loadConfigFile(name);
    setWindowModified(false);
    updateServerStatusInTree(false);
    updateActions();
    updateStatusBar();
}

bool MainWindow::loadConfigFile(const QString& fileName)
{
    newTree(true);
    m_settings->loadConfig(fileName);
    if (!loadConfigData())
        return false;
    applyAppSettings();
    if (QTreeWidgetItem* root = treeItem(m_server))
        root->setExpanded(true);
    onFirstEvent();
    return true;
}

// ---------------------------------------------------------------------------
// Window events

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!okToContinue(true)) {
        event->ignore();
        return;
    }
    emit closeApplication();
    event->accept();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    // The layout is part of the configuration.
    if (event->oldSize().isValid()) {
        setWindowModified(true);
        updateActions();
    }
}

void MainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        if (QTreeWidgetItem* root = treeItem(m_server))
            root->setText(0, tr("Ports & Devices"));
        m_versionLabel->setText(tr("Version: %1").arg(QString::fromLatin1(ProgramVersion)));
        if (auto* manual = qobject_cast<HelpViewer*>(editor(m_server)))
            manual->setContentFromFile(helpFile());
        updateWindowTitle();
        updateStatusBar();
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::on_splitter_splitterMoved(int pos, int index)
{
    Q_UNUSED(pos)
    Q_UNUSED(index)
    setWindowModified(true);
    updateActions();
}

void MainWindow::onLangSelectorIndexChanged(int index)
{
    const QString code = m_languageCombo->itemData(index).toString();
    Application::setLanguage(code);
    m_settings->language = code;
    // A setting of the file, with no backup of its own.
    setWindowModified(true);
    updateActions();
}

// ---------------------------------------------------------------------------
// The tree

ServerItem* MainWindow::itemOf(QTreeWidgetItem* entry) const
{
    return entry ? entry->data(0, Qt::UserRole).value<ServerItem*>() : nullptr;
}

ServerItem* MainWindow::currentServerItem() const
{
    return itemOf(ui->treeWidget->currentItem());
}

ServerItem* MainWindow::senderItem() const
{
    QObject* page = sender();
    for (auto it = m_editors.constBegin(); page && it != m_editors.constEnd(); ++it) {
        if (it.value() == page)
            return it.key();
    }
    return currentServerItem();
}

void MainWindow::selectItem(ServerItem* item)
{
    QTreeWidgetItem* entry = item ? treeItem(item) : nullptr;
    ui->treeWidget->setCurrentItem(entry);
    if (entry)
        entry->setSelected(true);
}

void MainWindow::addEditor(ServerItem* item, QWidget* editor)
{
    m_editors.insert(item, editor);
    ui->stackedWidget->addWidget(editor);
}

void MainWindow::removeEditor(ServerItem* item)
{
    QWidget* editor = m_editors.take(item);
    if (!editor)
        return;
    ui->stackedWidget->removeWidget(editor);
    disconnect(editor, nullptr, this, nullptr);
    disconnect(this, nullptr, editor, nullptr);
    editor->deleteLater();
}

QTreeWidgetItem* MainWindow::addPortInTree(Port* port, bool select)
{
    auto* entry = new QTreeWidgetItem(treeItem(m_server), QStringList(port->name()));
    entry->setData(0, Qt::UserRole, QVariant::fromValue<ServerItem*>(port));
    m_treeItems.insert(port, entry);
    entry->setExpanded(true);

    auto* editor = new RTUPortEditor;
    editor->setItem(port);
    connect(editor, &RTUPortEditor::changed, this, &MainWindow::onChanged);
    addEditor(port, editor);
    if (select)
        selectItem(port);
    return entry;
}

QTreeWidgetItem* MainWindow::addDeviceInTree(Port* port, Device* device, bool select)
{
    QTreeWidgetItem* portEntry = treeItem(port);
    auto* entry = new QTreeWidgetItem(portEntry);
    entry->setData(0, Qt::UserRole, QVariant::fromValue<ServerItem*>(device));
    m_treeItems.insert(device, entry);
    updateDeviceStatusInTree(device);
    if (portEntry)
        portEntry->setExpanded(true);

    addEditor(device, createDeviceEditor(device));
    if (select)
        selectItem(device);
    return entry;
}

QWidget* MainWindow::createDeviceEditor(Device* device)
{
    // Each model has its editor; the others get the default one.
    const QString model = device->deviceTemplateName();
    MainDeviceWidget* page = nullptr;
    if (model == QLatin1String("TCV-C") || model == QLatin1String("DX-C"))
        page = new TCV2Widget;
    else if (model == QLatin1String("QP-1C"))
        page = new QP1Widget;
    else if (model == QLatin1String("pH-7702"))
        page = new PH77Widget;
    else
        page = new DefaultDeviceWidget;
    page->setItem(device);
    connect(page, &DeviceWidget::changed, this, &MainWindow::onChanged);
    connect(this, &MainWindow::closeApplication, page, &MainDeviceWidget::closeApplication);
    // A polled device can be neither removed nor tested.
    connect(page->measureWidget(), &MeasureWidget::startPeriod, this, [this]() { updateActions(); });
    return page;
}

void MainWindow::refreshEditor(ServerItem* item)
{
    // After a dialog that talked to the device, the editor shows what the
    // device holds now.
    if (auto* page = qobject_cast<DeviceWidget*>(editor(item)))
        page->showDeviceInfoInFields();
}

bool MainWindow::exchangeRunning()
{
    for (QWidget* page : std::as_const(m_editors)) {
        auto* editor = qobject_cast<DeviceWidget*>(page);
        if (editor && editor->isActiveTransaction()) {
            statusBar()->showMessage(tr("Wait until the exchange with the device has ended"), 5000);
            return true;
        }
    }
    return false;
}

void MainWindow::updateDeviceStatusInTree(Device* device)
{
    QTreeWidgetItem* entry = device ? treeItem(device) : nullptr;
    if (!entry)
        return;
    QFont font = entry->font(0);
    font.setWeight(device->hartDeviceID().isEmpty() ? QFont::Normal : QFont::Bold);
    entry->setFont(0, font);

    const int state = device->deviceTagState();
    QString text = (state & TagStateMarked) ? QStringLiteral("+") : QString();
    text += device->name() + QLatin1Char(' ') + device->deviceTagsStateToShortString() + device->comment();
    entry->setText(0, text);

    QColor colour = Qt::black;
    if (state & (Device::TagStateRead | Device::TagStateWritten)) {
        if (device->errorCount() >= 1)
            colour = Qt::red;
        else if (device->state() == ServerItem::StateGood)
            colour = Qt::darkGreen;
    }
    entry->setForeground(0, colour);
}

void MainWindow::updateServerStatusInTree(bool modified)
{
    QTreeWidgetItem* root = treeItem(m_server);
    if (!root)
        return;
    QFont font = root->font(0);
    font.setBold(modified);
    font.setItalic(modified);
    root->setFont(0, font);
}

void MainWindow::updateActions()
{
    ui->actionSave->setEnabled(isWindowModified());
    ServerItem* item = currentServerItem();
    const int type = item ? item->type() : 0;
    auto* device = type == ServerItem::TypeDevice ? static_cast<Device*>(item) : nullptr;
    // A polled or archived device is in use.
    const bool deviceFree = device && !(device->deviceTagState() & (Device::TagStateArchived | Device::TagStatePolled));
    const bool portFree = type == ServerItem::TypePort && !static_cast<Port*>(item)->hasArchivatedDevices();

    ui->actionAdd->setEnabled(type == ServerItem::TypeServer || type == ServerItem::TypePort);
    ui->actionRemove->setEnabled(portFree || deviceFree);
    ui->actionSaveAsTemplate->setEnabled(device != nullptr);
    ui->actionTest->setEnabled(deviceFree && !device->hartDeviceID().isEmpty());
}

void MainWindow::currentTreeWidgetItemChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous)
{
    Q_UNUSED(previous)
    if (!current)
        return;
    ServerItem* item = itemOf(current);
    if (!item)
        return;
    QWidget* page = editor(item);
    if (item->type() == ServerItem::TypePort) {
        if (auto* portPage = qobject_cast<RTUPortEditor*>(page))
            portPage->updateButtons();
    } else if (item->type() == ServerItem::TypeDevice) {
        auto* device = static_cast<Device*>(item);
        DBG(LevelInfo) << "device" << device->name() << "on"
                       << (device->port() ? device->port()->serialName() : QString());
        updateDeviceStatusInTree(device);
    }
    if (page)
        ui->stackedWidget->setCurrentWidget(page);
    updateActions();
}

// ---------------------------------------------------------------------------
// Items

void MainWindow::addItem()
{
    ServerItem* item = currentServerItem();
    if (!item)
        return;
    if (item->type() == ServerItem::TypeServer) {
        // Numbered by the count of ports; a name in use gets a suffix from
        // the server, "Port_1_1".
        Port* port = m_server->addPort(tr("Port %1").arg(m_server->portCount()));
        if (!port)
            return;
        if (treeItem(port)) {
            // A port of exactly that name exists: it is the one asked for.
            selectItem(port);
            return;
        }
        addPortInTree(port, true);
        serverModified();
    } else if (item->type() == ServerItem::TypePort) {
        auto* port = static_cast<Port*>(item);
        DeviceAddDialog dialog(this);
        if (dialog.exec() != QDialog::Accepted)
            return;
        const QMap<QString, QString> selection = dialog.userSelection();
        for (auto it = selection.constBegin(); it != selection.constEnd(); ++it) {
            if (Device* device = port->addDevice(it.key(), it.key(), -1))
                addDeviceInTree(port, device, true);
        }
        serverModified();
    }
}

void MainWindow::deleteItem()
{
    ServerItem* item = currentServerItem();
    if (!item || exchangeRunning() || !ui->actionRemove->isEnabled())
        return;
    if (item->type() == ServerItem::TypePort)
        removePort(static_cast<Port*>(item));
    else if (item->type() == ServerItem::TypeDevice)
        removeDevice(static_cast<Device*>(item));
}

void MainWindow::removeDevice(Device* device)
{
    removeEditor(device);
    delete m_treeItems.take(device);
    if (Port* port = device->port())
        port->removeDevice(device->name());
    serverModified();
}

void MainWindow::removePort(Port* port)
{
    const QList<Device*> devices = port->devices();
    for (Device* device : devices)
        removeDevice(device);
    removeEditor(port);
    delete m_treeItems.take(port);
    m_server->removePort(port->name());
    serverModified();
}

// ---------------------------------------------------------------------------
// Services for the other widgets

QStringList MainWindow::portNames() const
{
    return m_server->portNames();
}

Port* MainWindow::portByName(const QString& name) const
{
    return m_server->portByName(name);
}

Port* MainWindow::portBySerialName(const QString& serialName) const
{
    // "ttyUSB0" is the line "/dev/ttyUSB0".
    const QList<Port*> list = m_server->ports();
    for (Port* port : list) {
        if (Port::systemLocation(port->serialName()) == Port::systemLocation(serialName))
            return port;
    }
    return nullptr;
}

QList<Port*> MainWindow::ports() const
{
    return m_server->ports();
}

// ---------------------------------------------------------------------------
// Dialogs

void MainWindow::changeSettings()
{
    SettingsDialog dialog(this);
    dialog.setSettings(*m_settings);
    if (dialog.exec() != QDialog::Accepted)
        return;
    *m_settings = dialog.settings();
    // Empty, so the present layout stays and the next save stores it again.
    m_settings->geometry.clear();
    m_settings->splitter.clear();
    applyAppSettings();
    setWindowModified(true);
    updateActions();
}

void MainWindow::help()
{
    HelpViewer viewer(this, true);
    viewer.setFont(m_settings->font);
    viewer.setContentFromFile(helpFile());
    viewer.exec();
}

void MainWindow::find()
{
    if (exchangeRunning())
        return;
    // The search takes the lines for itself: a poll would lose its port.
    for (Port* port : m_server->ports()) {
        for (Device* device : port->devices()) {
            if (device->deviceTagState() & Device::TagStatePolled) {
                QMessageBox::warning(
                    this, m_appTitle,
                    tr("The device %1 is being polled.\nStop polling before searching the lines.").arg(device->name()));
                return;
            }
        }
    }
    // The search talks on the lines itself: the ports let go of them first.
    const QList<Port*> list = m_server->ports();
    QStringList lines;
    for (Port* port : list) {
        port->closeHart();
        if (!port->serialName().isEmpty())
            lines << port->serialName();
    }
    FindDeviceDialog* dialog = FindDeviceDialog::instance(this);
    dialog->addPorts(lines, true);
    if (dialog->exec() == QDialog::Accepted)
        addFoundDevices(dialog->userSelection());
}

void MainWindow::addFoundDevices(const QList<QVariantMap>& selection)
{
    ServerItem* current = currentServerItem();
    QStringList present;
    bool added = false;
    for (const QVariantMap& found : selection) {
        const QString line = found.value(QStringLiteral("port")).toString();
        const QString templateName = found.value(QStringLiteral("template")).toString();
        const int address = found.value(QStringLiteral("polling_address")).toInt();
        Port* port = portBySerialName(line);
        if (!port) {
            port = m_server->addPort(tr("Port %1").arg(m_server->portCount()));
            if (!port)
                continue;
            port->setSerialName(line);
            addPortInTree(port, false);
            added = true;
        } else if (Device* other = port->device(address)) {
            // One entry for one device: a second would talk to the same instrument.
            present << tr("%1 at address %2 of %3").arg(other->name()).arg(address).arg(port->name());
            continue;
        }
        Device* device = port->addDevice(templateName, templateName, -1);
        if (!device)
            continue;
        device->setAddress(address);
        for (auto it = found.constBegin(); it != found.constEnd(); ++it) {
            if (it.key() != QLatin1String("port") && it.key() != QLatin1String("template"))
                device->setDeviceInfo(it.key(), it.value());
        }
        // The scan identified it: it answered command 0 with this identity.
        device->takeIdentityFromDeviceInfo();
        device->updateDeviceName();
        addDeviceInTree(port, device, false);
        added = true;
    }
    selectItem(current);
    if (added)
        serverModified();
    if (!present.isEmpty())
        QMessageBox::information(this, m_appTitle,
                                 tr("These devices are in the tree already and were not added again:\n%1")
                                     .arg(present.join(QLatin1Char('\n'))));
}

void MainWindow::testDevice()
{
    if (exchangeRunning())
        return;
    ServerItem* item = currentServerItem();
    if (!item || item->type() != ServerItem::TypeDevice || static_cast<Device*>(item)->hartDeviceID().isEmpty())
        return;
    auto* device = static_cast<Device*>(item);
    TestDeviceDialog dialog(this);
    dialog.setDevice(device);
    bool changed = false;
    connect(&dialog, &TestDeviceDialog::changed, this, [&changed]() { changed = true; });
    dialog.exec();
    updateDeviceStatusInTree(device);
    refreshEditor(device);
    updateActions();
    // A test that wrote to the device changed what the configuration holds.
    if (changed)
        serverModified();
}

void MainWindow::saveFactoryNumber()
{
    if (exchangeRunning())
        return;
    ServerItem* item = currentServerItem();
    if (!item || item->type() != ServerItem::TypeDevice) {
        QMessageBox::warning(this, m_appTitle, tr("Select an instrument of our maker to write its factory number."));
        return;
    }
    auto* device = static_cast<Device*>(item);
    if (!device->hasMetrologyAccess()) {
        QMessageBox::warning(this, m_appTitle, tr("The device %1 has no factory number.").arg(device->name()));
        return;
    }
    FactoryNumberDialog dialog(device, this);
    dialog.exec();
    // The identity may have changed even when the write did not end well.
    updateDeviceStatusInTree(device);
    refreshEditor(device);
    updateActions();
    // The device identity is part of the configuration.
    if (dialog.written())
        serverModified();
}
