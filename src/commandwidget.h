#ifndef COMMANDWIDGET_H
#define COMMANDWIDGET_H

#include <QByteArray>
#include <QPointer>
#include <QWidget>

class Device;
class DeviceWidget;
class Port;

namespace Ui {
class CommandWidget;
}

// The tab where the operator sends any HART command by hand. The request
// data is built in a buffer by typed insertions (a byte, an integer, a float,
// a text), which go in place of the bytes selected in the buffer field or at
// its end. The answer is shown as bytes and can be taken apart by a mask of
// tokens [offset]type[length]: b a byte, i an integer, f a float, t packed
// text, as "b i2 f" or "5t6".
//
// The exchange is a transaction of the owner, the editor the tab belongs to.
class CommandWidget : public QWidget
{
    Q_OBJECT

public:
    explicit CommandWidget(DeviceWidget* owner, QWidget* parent = nullptr);
    ~CommandWidget() override;

    QByteArray buffer() const { return m_buffer; }
    QByteArray answer() const { return m_answer; }

    // Decodes answer by mask into "value | value | ...". A bad token is left
    // out and error tells of the last one; error is empty when all were good.
    // The packed text of t needs a port: without one it reads as empty.
    static QString parseMask(const QString& mask, const QByteArray& answer, Port* port, QString* error);

public slots:
    void onDeviceChanged(Device* device);
    void onUpdateButtons(bool on);
    void onResetWidget();

    void on_cmbCmdContext_currentIndexChanged(int index);
    void on_btnSendCustomCmd_clicked();
    void on_btnPlus_clicked();
    void on_btnMinus_clicked();
    void on_btnAddByte_clicked();
    void on_btnAddFloat_clicked();
    void on_btnAddInt_clicked();
    void on_btnAddText_clicked();
    void on_btnAddLatin1Text_clicked();
    void on_btnGetFloat_clicked();
    void on_btnGetInt_clicked();
    void on_dspnValue_valueChanged(double value);
    void on_btnGetText_clicked();
    void on_btnClearBuffer_clicked();
    void on_txtCmd_selectionChanged();
    void on_txtAnswer_selectionChanged();
    void on_btnParsing_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void loadCommandsContext();
    void updateBuffer();
    void setMaskFieldColor(bool error);
    // Puts value in place of the selected bytes, or at the end when nothing
    // is selected; refused while the buffer holds more than limit bytes.
    void insertInBuffer(const QByteArray& value, int limit);
    void stepByte(int step);
    Port* devicePort() const;

    Ui::CommandWidget* ui;
    DeviceWidget* m_owner;
    QPointer<Device> m_device;
    QByteArray m_buffer;
    QByteArray m_answer;
    int m_selectionStart = 0;
    int m_selectionLength = 0;
};

#endif // COMMANDWIDGET_H
