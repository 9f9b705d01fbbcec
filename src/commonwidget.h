#ifndef COMMONWIDGET_H
#define COMMONWIDGET_H

#include "devicewidget.h"

class QPushButton;

namespace Ui {
class CommonWidget;
}

// The identification tab of every device editor. One of its checks (by
// polling address, tag, long tag or command 73) makes the instrument known
// to the program: until one has succeeded, the buttons that talk to the
// instrument stay off. It also reads and writes what every HART instrument
// has: polling address, tag, descriptor, date, long tag, message, final
// assembly number, write protection, damping time and number of preambles,
// and starts a reset or a self test.
class CommonWidget : public DeviceWidget
{
    Q_OBJECT

public:
    CommonWidget(DeviceWidget* parent, bool hasSelfTest);
    ~CommonWidget() override;

    // The identity a model editor expects; 0 in either switches the test off.
    void setExpectedCodes(int manufacturerCode, int deviceTypeCode);

    void checkDevice(const QString& tag, const QString& longTag);
    // False only when the user refused a device of another type.
    bool checkDeviceIDs();
    void showMainInfo(bool clear);
    void resetCommonWidget(bool clearTag, bool clearLongTag);
    bool okToSaveChanges(const QString& what);
    void updateMyButtons(bool on);

public slots:
    // The bound fields again from the device, once it has been identified.
    void showDeviceInfoInFields() override;
    void onDeviceChanged(Device* device);
    void onSerialNameChanged();
    void onStartPeriod(bool on);
    void onUpdateButtons(bool on);
    void onAppendDeviceStatus(const QString& statusText, const QByteArray& statusCode);

    void on_cmbPorts_currentIndexChanged(int index);
    void on_btnCheck_clicked();
    void on_btnCheckByTag_clicked();
    void on_btnCheckByLongTag_clicked();
    void on_btnFindDeviceBy73_clicked();
    void on_btnSaveTagDescDate_clicked();
    void on_btnReadSaveMessage_clicked();
    void on_btnSaveAssemblyNumber_clicked();
    void on_btnReadLongTag_clicked();
    void on_btnSaveLongTag_clicked();
    void on_btnSaveDampingTime_clicked();
    void on_btnSavePreamblesCount_clicked();
    void on_btnSavePollingAddress_clicked();
    void on_spnPollingAddress_valueChanged(int value);
    void on_chkWriteProtection_stateChanged(int state);
    void on_btnReset_clicked();
    void on_btnSelfTest_clicked();

signals:
    void appendDeviceError(const QString& errorText);

protected:
    void changeEvent(QEvent* event) override;

private:
    // The check after its identification step, shared by the checks by
    // address, tag and long tag and by the search with command 73.
    void finishCheck(const QString& tag, bool storeAddressOfRevision5);
    // A button that reads its fields while they are empty and writes them
    // otherwise.
    struct ReadOrSave
    {
        QPushButton* button;
        QList<QWidget*> fields;
        QString what;
        int readCmd;
        int writeCmd;
        QStringList names;
    };
    ReadOrSave readOrSave(QPushButton* button) const;
    bool fieldsEmpty(const ReadOrSave& action) const;
    void runReadOrSave(const ReadOrSave& action);
    void updateReadSaveCaptions();
    void storeField(const QString& name, QWidget* field);
    // One write of one value from its field, after the user's consent.
    void simpleWrite(const QString& what, const QString& name, QWidget* field, int cmd);

    Ui::CommonWidget* ui;
    int m_manufacturerCode = 0;
    int m_deviceTypeCode = 0;
};

#endif // COMMONWIDGET_H
