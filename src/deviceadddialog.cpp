#include "deviceadddialog.h"
#include "ui_deviceadddialog.h"

#include <QEvent>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidgetItem>

namespace {

enum Column { ColumnName = 0, ColumnTemplate, ColumnProducer, ColumnDescription, ColumnVersion, ColumnCount };

} // namespace

DeviceAddDialog::DeviceAddDialog(QWidget* parent) : QDialog(parent), ui(new Ui::DeviceAddDialog)
{
    ui->setupUi(this);
    ui->tableWidget->setColumnCount(ColumnCount);
    setHeaderLabels();
    // The rows stand in the order of the list until the user sorts them.
    ui->tableWidget->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    ui->tableWidget->setSortingEnabled(true);
    fillTable();

    connect(ui->tableWidget, &QTableWidget::itemChanged, this, &DeviceAddDialog::updateOkButton);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    updateOkButton();
}

DeviceAddDialog::~DeviceAddDialog()
{
    delete ui;
}

void DeviceAddDialog::setHeaderLabels()
{
    ui->tableWidget->setHorizontalHeaderLabels(
        {tr("Name"), tr("Template"), tr("Producer"), tr("Description"), tr("Version")});
}

void DeviceAddDialog::fillTable()
{
    const auto row = [](const QString& name, const QString& id, const QString& producer, const QString& comment,
                        const QString& version) {
        return QMap<QString, QVariant>{{QStringLiteral("name"), name},
                                       {QStringLiteral("id"), id},
                                       {QStringLiteral("producer"), producer},
                                       {QStringLiteral("comment"), comment},
                                       {QStringLiteral("version"), version}};
    };
    appendInfo(row(tr("TCV-C"), QStringLiteral("TCV-C"), tr("Orvena"), tr("Temperature converter"), tr("1.0")));
    appendInfo(row(tr("DX-C"), QStringLiteral("DX-C"), tr("Orvena"), tr("Temperature converter"), tr("1.0")));
    appendInfo(row(tr("QP-1C"), QStringLiteral("QP-1C"), tr("Orvena"), tr("Pressure converter"), tr("1.0")));
    appendInfo(row(tr("pH-7702"), QStringLiteral("pH-7702"), tr("Orvena"), tr("pH-meter"), tr("1.0")));
    appendInfo(row(tr("General"), QStringLiteral("General"), tr("Anyone"),
                   tr("Only universal and common (partly) functions"), tr("1.0")));
    ui->tableWidget->resizeColumnsToContents();
}

void DeviceAddDialog::appendInfo(const QMap<QString, QVariant>& info)
{
    QTableWidget* table = ui->tableWidget;
    // A sorted table would move the row while its cells are being set.
    const bool sorting = table->isSortingEnabled();
    table->setSortingEnabled(false);

    const int row = table->rowCount();
    table->insertRow(row);
    const auto cell = [table, row](int column, const QString& text, Qt::ItemFlags extra = {}) {
        auto* item = new QTableWidgetItem(text);
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | extra);
        table->setItem(row, column, item);
        return item;
    };
    QTableWidgetItem* first = cell(ColumnName, info.value(QStringLiteral("name")).toString(), Qt::ItemIsUserCheckable);
    first->setCheckState(Qt::Unchecked);
    first->setData(Qt::UserRole, info.value(QStringLiteral("id")));
    cell(ColumnTemplate, info.value(QStringLiteral("id")).toString());
    cell(ColumnProducer, info.value(QStringLiteral("producer")).toString());
    cell(ColumnDescription, info.value(QStringLiteral("comment")).toString());
    cell(ColumnVersion, info.value(QStringLiteral("version")).toString());

    table->setSortingEnabled(sorting);
}

QMap<QString, QString> DeviceAddDialog::userSelection() const
{
    QMap<QString, QString> selection;
    const QTableWidget* table = ui->tableWidget;
    for (int row = 0; row < table->rowCount(); ++row) {
        const QTableWidgetItem* item = table->item(row, ColumnName);
        if (item && item->checkState() == Qt::Checked)
            selection.insert(item->data(Qt::UserRole).toString(), item->text());
    }
    return selection;
}

void DeviceAddDialog::updateOkButton()
{
    if (QPushButton* ok = ui->buttonBox->button(QDialogButtonBox::Ok))
        ok->setEnabled(!userSelection().isEmpty());
}

void DeviceAddDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        setHeaderLabels();
    }
    QDialog::changeEvent(event);
}
