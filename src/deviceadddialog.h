#ifndef DEVICEADDDIALOG_H
#define DEVICEADDDIALOG_H

#include <QDialog>
#include <QMap>
#include <QString>
#include <QVariant>

namespace Ui {
class DeviceAddDialog;
}

// Picks one or more device models for new entries of a port. The models are
// fixed in the program: a template is a model name. Each row carries the
// model's id (the template name) in its first item, so the ticked rows are
// read by their own id whatever the sort order of the table.
class DeviceAddDialog : public QDialog
{
    Q_OBJECT

public:
    explicit DeviceAddDialog(QWidget* parent = nullptr);
    ~DeviceAddDialog() override;

    // id -> shown name of every ticked row.
    QMap<QString, QString> userSelection() const;

    void fillTable();
    // One row at the end, from "name", "id", "producer", "comment", "version".
    void appendInfo(const QMap<QString, QVariant>& info);

public slots:
    void updateOkButton();

protected:
    void changeEvent(QEvent* event) override;

private:
    void setHeaderLabels();

    Ui::DeviceAddDialog* ui;
};

#endif // DEVICEADDDIALOG_H
