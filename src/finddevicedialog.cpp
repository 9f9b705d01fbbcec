#include "finddevicedialog.h"
#include "ui_finddevicedialog.h"

#include "appsettings.h"
#include "debugqt.h"
#include "device.h"
#include "port.h"
#include "utils.h"

#include <QDate>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

enum Column {
    ColumnPort = 0,
    ColumnAddress,
    ColumnLongAddress,
    ColumnTag,
    ColumnDescription,
    ColumnDate,
    ColumnTemplate,
    ColumnCount
};

// Tag, descriptor and date.
const int TagCommand = 13;

// Every column to its contents but the last, which takes the rest of the width.
void resizeColumns(QTableWidget* table)
{
    for (int column = 0; column + 1 < table->columnCount(); ++column)
        table->resizeColumnToContents(column);
}

} // namespace

FindDeviceDialog* FindDeviceDialog::instance(QWidget* parent)
{
    static QPointer<FindDeviceDialog> dialog;
    if (!dialog)
        dialog = new FindDeviceDialog(parent);
    return dialog;
}

FindDeviceDialog::FindDeviceDialog(QWidget* parent) : QDialog(parent), ui(new Ui::FindDeviceDialog)
{
    ui->setupUi(this);
    ui->tableWidget->setColumnCount(ColumnCount);
    ui->tableWidget->horizontalHeader()->setStretchLastSection(true);
    ui->tableWidget->setWordWrap(false);
    setHeaderLabels();
    // The box hands its keys to its line edit directly: the box is watched.
    ui->cmbPorts->installEventFilter(this);
    ui->cmbPorts->lineEdit()->setPlaceholderText(QStringLiteral("/dev/ttyUSB0"));

    connect(ui->lstPorts, &QListWidget::itemChanged, this, &FindDeviceDialog::updateStartButton);
    connect(ui->tableWidget, &QTableWidget::itemSelectionChanged, this, &FindDeviceDialog::updateOkButton);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);

    setupPorts();
    on_spnResponseTimeout_valueChanged(ui->spnResponseTimeout->value());
    updateStartButton();
    updateOkButton();
}

FindDeviceDialog::~FindDeviceDialog()
{
    m_port.close();
    delete ui;
}

void FindDeviceDialog::setHeaderLabels()
{
    ui->tableWidget->setHorizontalHeaderLabels(
        {tr("Port"), tr("Address"), tr("Long Address"), tr("Tag"), tr("Description"), tr("Date"), tr("Template")});
}

// ---------------------------------------------------------------------------
// Lines

void FindDeviceDialog::setupPorts()
{
    const QStringList names = Port::devices_available();
    {
        const QSignalBlocker blocker(ui->cmbPorts);
        const QString typed = ui->cmbPorts->currentText();
        ui->cmbPorts->clear();
        for (const QString& name : std::as_const(names))
            ui->cmbPorts->addItem(name, name);
        ui->cmbPorts->setCurrentIndex(-1);
        ui->cmbPorts->setEditText(typed);
    }
    // Lines already in the list keep their place and their tick.
    for (const QString& name : std::as_const(names))
        addPortEntry(name, false);
    updateStartButton();
}

QListWidgetItem* FindDeviceDialog::addPortEntry(const QString& name, bool check)
{
    const QString line = name.trimmed();
    if (line.isEmpty())
        return nullptr;
    const QList<QListWidgetItem*> present = ui->lstPorts->findItems(line, Qt::MatchExactly);
    QListWidgetItem* entry = present.value(0);
    if (!entry) {
        entry = new QListWidgetItem(line, ui->lstPorts);
        entry->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        entry->setCheckState(Qt::Unchecked);
    }
    if (check)
        entry->setCheckState(Qt::Checked);
    return entry;
}

void FindDeviceDialog::addPorts(const QStringList& names, bool check)
{
    for (const QString& name : names)
        addPortEntry(name, check);
    updateStartButton();
}

QStringList FindDeviceDialog::selectedPorts() const
{
    QStringList names;
    for (int row = 0; row < ui->lstPorts->count(); ++row) {
        const QListWidgetItem* entry = ui->lstPorts->item(row);
        if (entry->checkState() == Qt::Checked)
            names << entry->text();
    }
    return names;
}

void FindDeviceDialog::on_cmbPorts_currentIndexChanged(int index)
{
    if (index < 0)
        return;
    // The line chosen joins the list, ticked, and is shown there.
    if (QListWidgetItem* entry = addPortEntry(ui->cmbPorts->itemData(index).toString(), true))
        ui->lstPorts->setCurrentItem(entry);
}

bool FindDeviceDialog::eventFilter(QObject* watched, QEvent* event)
{
    // Enter in the path field takes the typed line; it does not close the dialog.
    if (watched == ui->cmbPorts && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (QListWidgetItem* entry = addPortEntry(ui->cmbPorts->currentText(), true))
                ui->lstPorts->setCurrentItem(entry);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void FindDeviceDialog::on_btnRefreshPortList_clicked()
{
    setupPorts();
}

void FindDeviceDialog::on_spnResponseTimeout_valueChanged(int value)
{
    m_port.setProperty("response_timeout", value > 0 ? value : HartPort::DefaultResponseTimeout);
    m_port.setProperty("byte_timeout", value / 2 > 0 ? value / 2 : HartPort::DefaultByteTimeout);
}

void FindDeviceDialog::updateStartButton()
{
    ui->btnStart->setEnabled(!selectedPorts().isEmpty());
}

void FindDeviceDialog::updateOkButton()
{
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!ui->tableWidget->selectedItems().isEmpty());
}

// ---------------------------------------------------------------------------
// The search

void FindDeviceDialog::on_btnStart_clicked()
{
    ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(false);
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setEnabled(false);
    ui->btnStart->setEnabled(false);
    ui->tableWidget->setRowCount(0);
    m_found.clear();
    findDevices();
    stopFind();
}

bool FindDeviceDialog::exchange(unsigned char address, const QByteArray& longAddress, unsigned char command,
                                QByteArray& response)
{
    const bool primary = AppSettings::instance()->bPrimaryMaster;
    bool ok = false;
    runWhileEventLoopTurns([&]() {
        ok = longAddress.isEmpty() ? m_port.sendZeroCommand(address, response, primary)
                                   : m_port.sendCommand(longAddress, command, QByteArray(), response, primary);
    });
    return ok;
}

void FindDeviceDialog::findDevices()
{
    const QStringList ports = selectedPorts();
    const int first = ui->spnAddressFrom->value();
    const int last = ui->spnAddressTo->value();
    const int perPort = qMax(0, last - first);

    QProgressDialog progress(this);
    progress.setWindowTitle(tr("Scanning ..."));
    progress.setCancelButtonText(tr("Cancel"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setRange(0, qMax(1, int(ports.size()) * perPort));
    progress.setMinimumDuration(0);
    progress.setAutoClose(false);
    progress.setAutoReset(false);
    progress.setValue(0);

    int step = 0;
    for (const QString& port : ports) {
        if (progress.wasCanceled())
            break;
        m_port.setSerialName(port);
        bool open = m_port.isOpen();
        if (!open)
            runWhileEventLoopTurns([&]() { open = m_port.open(); });
        if (!open) {
            DBG(LevelErr) << "cannot open" << port << ":" << m_port.errorText();
            QMessageBox::critical(this, windowTitle(),
                                  tr("Cannot open the port %1:\n%2").arg(port, m_port.errorText()));
            step += perPort;
            progress.setValue(step);
            continue;
        }
        // The value in the last address field itself is not scanned.
        for (int address = first; address < last && !progress.wasCanceled(); ++address) {
            progress.setLabelText(tr("Search by address %1 via %2 ...").arg(address).arg(port));
            progress.setValue(++step);
            QCoreApplication::processEvents();
            QByteArray response;
            if (!exchange(quint8(address), QByteArray(), 0, response))
                continue;
            QVariantMap identity;
            if (m_port.parseCommandZeroResponse(response, identity))
                appendTabWidget(address, port, identity);
            else
                DBG(LevelWarn) << "address" << address << "via" << port << ":" << m_port.errorText();
        }
        // The next line is opened afresh: a request that comes with a change
        // of line is not sent.
        m_port.close();
    }
    progress.setValue(progress.maximum());
}

void FindDeviceDialog::appendTabWidget(int address, const QString& port, QVariantMap data)
{
    const QByteArray longAddress = data.value(QStringLiteral("address")).toByteArray();
    const QString templateName = Device::templateNameByCodes(data.value(QStringLiteral("manufacturer_code")).toInt(),
                                                             data.value(QStringLiteral("device_type_code")).toInt());
    data.insert(QStringLiteral("port"), port);
    data.insert(QStringLiteral("polling_address"), address);
    data.insert(QStringLiteral("template"), templateName);
    data.insert(QStringLiteral("tag"), QString());
    data.insert(QStringLiteral("descriptor"), QString());
    QByteArray response;
    if (exchange(0, longAddress, TagCommand, response))
        m_port.parseCommand13Response(response, data);
    else
        DBG(LevelWarn) << "no tag from address" << address << "via" << port << ":" << m_port.errorText();
    const QDate date = data.value(QStringLiteral("date")).toDate();
    if (!date.isValid())
        data.remove(QStringLiteral("date"));
    m_found.append(data);

    const int row = ui->tableWidget->rowCount();
    ui->tableWidget->insertRow(row);
    const QStringList cells = {port,
                               QString::number(address),
                               QString::fromLatin1(longAddress.toHex(' ').toUpper()),
                               data.value(QStringLiteral("tag")).toString(),
                               data.value(QStringLiteral("descriptor")).toString(),
                               date.isValid() ? date.toString(QStringLiteral("dd.MM.yyyy")) : QString(),
                               templateName};
    for (int column = 0; column < ColumnCount; ++column) {
        auto* cell = new QTableWidgetItem(cells.at(column));
        cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        cell->setData(Qt::UserRole, int(m_found.size()) - 1);
        ui->tableWidget->setItem(row, column, cell);
    }
    resizeColumns(ui->tableWidget);
    ui->tableWidget->scrollToItem(ui->tableWidget->item(row, 0));
}

void FindDeviceDialog::stopFind()
{
    // What was found is offered as a whole; the user takes rows out of it.
    ui->tableWidget->selectAll();
    updateOkButton();
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setEnabled(true);
    updateStartButton();
    m_port.close();
    resizeColumns(ui->tableWidget);
}

QList<QVariantMap> FindDeviceDialog::userSelection() const
{
    QList<QVariantMap> selection;
    const QModelIndexList rows = ui->tableWidget->selectionModel()->selectedRows();
    QList<int> found;
    for (const QModelIndex& row : rows)
        found << ui->tableWidget->item(row.row(), ColumnPort)->data(Qt::UserRole).toInt();
    std::sort(found.begin(), found.end());
    for (int index : std::as_const(found))
        selection << m_found.value(index);
    return selection;
}

void FindDeviceDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        setHeaderLabels();
        // New texts, new widths.
        ui->spnResponseTimeout->updateGeometry();
        resizeColumns(ui->tableWidget);
    }
    QDialog::changeEvent(event);
}
