#ifndef DEVICESUMMARYWIDGET_H
#define DEVICESUMMARYWIDGET_H

#include "device.h"

#include <QPointer>
#include <QWidget>

class QLabel;

namespace Ui {
class DeviceSummaryWidget;
}

// The page of a device in the main window while the device has no editor of
// its own: the identity of the device and the state the tree shows, read
// only, and one action, "Identify", which reads the identity of the device at
// its polling address.
class DeviceSummaryWidget : public QWidget
{
    Q_OBJECT

public:
    explicit DeviceSummaryWidget(QWidget* parent = nullptr);
    ~DeviceSummaryWidget() override;

    // Shows the item when it is a device; any other item, or null, leaves an
    // empty page whose button does nothing.
    void setItem(ServerItem* item);
    Device* device() const { return m_device; }

    // The text shown for a row, by the object name of its value label
    // ("valueName", "valueLongAddress", ...); empty for a hidden row.
    QString rowText(const QString& valueName) const;

public slots:
    // Shows the device's present values again.
    void refresh();
    // Command 0 at the polling address, and, once the device answers, its tag,
    // descriptor and date (command 13) and its message (command 12). The page
    // shows the outcome and changed() tells the window.
    bool identify();

signals:
    void changed();
    // Sent by the window when the program ends; the page holds nothing to stop.
    void closeApplication();

protected:
    void changeEvent(QEvent* event) override;

private:
    void setRow(QLabel* value, const QString& text);

    Ui::DeviceSummaryWidget* ui;
    QPointer<Device> m_device;
};

#endif // DEVICESUMMARYWIDGET_H
