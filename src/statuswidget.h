#ifndef STATUSWIDGET_H
#define STATUSWIDGET_H

#include <QPointer>
#include <QWidget>

class Device;
class DeviceWidget;

namespace Ui {
class StatusWidget;
}

// The strip at the foot of a device editor that shows a running exchange:
// the status bytes of the last answer, the progress of the transaction and
// its verdict, green or red, with the device's error text in a box when it
// has one.
class StatusWidget : public QWidget
{
    Q_OBJECT

public:
    explicit StatusWidget(DeviceWidget* owner);
    ~StatusWidget() override;

    bool isBusy() const { return m_busy; }
    QString statusText() const;
    QString errorText() const;

public slots:
    void onDeviceChanged(Device* device);
    void onInitProgressBar(const QString& title, int max);
    void onNextStep();
    void onShowFinalMessage(int steps);
    void onShowLogMessage(int addr, const QString& msg);
    void onAppendDeviceError(const QString& errorText);
    void onAppendDeviceStatus(const QString& statusText, const QByteArray& statusCode);

protected:
    void changeEvent(QEvent* event) override;

private:
    Ui::StatusWidget* ui;
    bool m_busy = false;
    QPointer<Device> m_device;
    QString m_title;
};

#endif // STATUSWIDGET_H
