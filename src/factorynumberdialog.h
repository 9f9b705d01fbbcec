#ifndef FACTORYNUMBERDIALOG_H
#define FACTORYNUMBERDIALOG_H

#include "device.h"

#include <QDialog>
#include <QPointer>

namespace Ui {
class FactoryNumberDialog;
}

// Writes the factory number of an instrument of our maker: the 3-byte device
// identifier, which is also the last three bytes of the long address. The
// instrument takes it only with metrology access open, so "Write" opens
// access with the code the user gives, writes the number, and closes access
// again. A refused code sends nothing more.
class FactoryNumberDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FactoryNumberDialog(Device* device, QWidget* parent = nullptr);
    ~FactoryNumberDialog() override;

    Device* device() const { return m_device; }
    // Access code, factory number, access closed; true when the device took
    // the number and answered at its new long address. The status line
    // tells the outcome either way.
    bool writeFactoryNumber(quint32 code, quint32 number);
    // True once a number has been written in this dialog.
    bool written() const { return m_written; }
    QString statusText() const;
    // "20 91 12 34 56" as shown.
    QString addressText() const;

    static constexpr quint32 MaxFactoryNumber = 0xFFFFFF;

private slots:
    void onWriteClicked();
    void showNumberBytes(int number);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showDevice();
    void setStatus(const QString& text, bool good);

    Ui::FactoryNumberDialog* ui;
    QPointer<Device> m_device;
    bool m_written = false;
};

#endif // FACTORYNUMBERDIALOG_H
