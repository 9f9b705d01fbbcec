#ifndef DEVICEWIDGET_H
#define DEVICEWIDGET_H

#include "device.h"

#include <QMap>
#include <QPointer>
#include <QStringList>
#include <QVariantList>
#include <QWidget>

#include <functional>

class QComboBox;
class QDate;
class QLabel;
class QTabWidget;
class StatusWidget;

// The base of every panel that edits one device. It binds input fields to
// named values of the device and paints a field blue once the user changed
// it; it composes panels into one editor (children, tabs, one status
// panel); and it runs every exchange with the instrument as a transaction:
//
//     if (!initProgressBar(tr("Reading"), 2))
//         return;                       // another exchange is running
//     if (readDevice(13)) {
//         nextStep();
//         if (readDevice(12))
//             nextStep();
//     }
//     showFinalMessage(0);              // green when every step was taken
//
// All panels of one editor share the transaction flag of their parent, so a
// second click during an exchange, on any tab, does nothing. readDevice()
// and writeDevice() run the exchange on a thread of their own while the
// caller's event loop turns, so the window stays alive.
class DeviceWidget : public QWidget
{
    Q_OBJECT

public:
    explicit DeviceWidget(QWidget* parent = nullptr, Device* device = nullptr);
    ~DeviceWidget() override;

    Device* device() const { return m_device; }
    QString deviceTag() const;
    QString deviceID() const;

    void setChildWidget(DeviceWidget* child, const QString& caption);
    int setChildWidgetInTab(DeviceWidget* child, QTabWidget* tab, const QString& caption);
    int setWidgetInTab(QWidget* page, QTabWidget* tab, const QString& caption);
    void setStatusWidget(StatusWidget* status) { m_statusWidget = status; }
    StatusWidget* statusWidget() const { return m_statusWidget; }
    void retranslateTabWidget();

    // Fills a combo box whose item data is the row number, or, for the
    // second form, the "id" of each map with its "name" as the text.
    static void loadComboBoxItems(const QStringList& items, QComboBox* box);
    static void loadComboBoxItemsWithItemData(const QVariantList& items, QComboBox* box);
    void setFieldUsed(QWidget* field, bool used, QLabel* label = nullptr);

    // Shows the device's value of that name in the field and, at the first
    // call for the name, binds the field to it (watching its changes when
    // watch is set). The field is clean afterwards.
    void showDeviceInfoInField(const QString& name, QWidget* field, bool watch = true);
    QWidget* inputField(const QString& name) const { return m_inputFields.value(name); }
    const QMap<QString, QWidget*>& inputFields() const { return m_inputFields; }
    static bool isFieldModified(const QWidget* field);

    // The transaction protocol.
    bool initProgressBar(const QString& title, int steps);
    void nextStep();
    void showFinalMessage(int steps);
    bool isActiveTransaction() const;

    // One exchange with the device, on a thread of its own while the event
    // loop turns; false without a device.
    bool readDevice(int cmd);
    bool writeDevice(int cmd);
    bool runExchange(const std::function<bool()>& call);

    virtual bool isValid();

public slots:
    virtual void initWidget();
    virtual void showDeviceInfoInFields();
    virtual void setFieldColorModified(QWidget* field, bool modified);
    virtual void onWidgetStateChanged();

    void onComboBoxCurrentIndexChanged(int index);
    void onSpnIntBoxValueChanged(int value);
    void onSpnDoubleBoxValueChanged(double value);
    void onTxtEditBoxTextChanged(const QString& text);
    void onDateEditBoxDateChanged(const QDate& date);

signals:
    void serialNameChanged();
    void deviceChanged(Device* device);
    void changed();
    void init_progress_bar(const QString& title, int max);
    void next_step();
    void show_final_message(int steps);
    void resetWidget();
    void updateButtons(bool on);

protected:
    void changeEvent(QEvent* event) override;
    void setDevice(Device* device);
    DeviceWidget* transactionOwner() const;

    QTabWidget* m_tabMainWidget = nullptr;
    QPointer<Device> m_device;
    QMap<DeviceWidget*, QString> m_includedWidgets;
    QMap<QWidget*, QString> m_tabWidgets;
    QMap<QString, QWidget*> m_inputFields;
    bool m_bIsModifyBlocking = false;
    DeviceWidget* m_parentWidget = nullptr;
    bool m_activeTransaction = false;
    StatusWidget* m_statusWidget = nullptr;
};

#endif // DEVICEWIDGET_H
