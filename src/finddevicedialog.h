#ifndef FINDDEVICEDIALOG_H
#define FINDDEVICEDIALOG_H

#include "hartport.h"

#include <QDialog>
#include <QList>
#include <QStringList>
#include <QVariantMap>

class QListWidgetItem;

namespace Ui {
class FindDeviceDialog;
}

// Scans serial lines for HART devices: command 0 to each polling address of
// a range, on each ticked line in list order, through a HartPort of its own.
// Every device that answers gets a row with its line, polling address, long
// address, tag, descriptor and date (command 13) and the template its
// identity codes name; the rows the user selects are handed to the main
// window by userSelection().
//
// The list of lines holds the serial ports the system reports, the lines the
// main window passes in (its own ports) and paths typed into the box below
// it: the system lists no pseudo-terminals and no /dev/serial/by-id links.
// One dialog serves the whole program, so the lines and the last results
// stay between searches.
class FindDeviceDialog : public QDialog
{
    Q_OBJECT

public:
    static FindDeviceDialog* instance(QWidget* parent);
    ~FindDeviceDialog() override;

    // Adds lines to the list; those named are ticked when check is set.
    void addPorts(const QStringList& names, bool check);
    // The ticked lines, in list order.
    QStringList selectedPorts() const;
    // For each selected row, the device's map: "port" (the line),
    // "polling_address", "template", "address" (the long address, bytes),
    // "tag", "descriptor", "date" (a date; absent when the device gave none),
    // and the identity that command 0 answered ("deviceID", "manufacturer_code",
    // "device_type_code" and the rest).
    QList<QVariantMap> userSelection() const;
    HartPort& hartPort() { return m_port; }

public slots:
    void updateStartButton();
    void updateOkButton();
    void on_cmbPorts_currentIndexChanged(int index);
    void on_btnStart_clicked();
    void on_btnRefreshPortList_clicked();
    void on_spnResponseTimeout_valueChanged(int value);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit FindDeviceDialog(QWidget* parent);
    void setHeaderLabels();
    void setupPorts();
    QListWidgetItem* addPortEntry(const QString& name, bool check);
    void findDevices();
    void stopFind();
    // Command 0 answered at this address: reads tag, descriptor and date and
    // adds the row.
    void appendTabWidget(int address, const QString& port, QVariantMap data);
    // The exchange on its own thread while the window's events go on.
    bool exchange(unsigned char address, const QByteArray& longAddress, unsigned char command, QByteArray& response);

    Ui::FindDeviceDialog* ui;
    HartPort m_port;
    QList<QVariantMap> m_found;
};

#endif // FINDDEVICEDIALOG_H
