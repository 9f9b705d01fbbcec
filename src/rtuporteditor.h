#ifndef RTUPORTEDITOR_H
#define RTUPORTEDITOR_H

#include <QPointer>
#include <QWidget>

class Port;
class QSpinBox;
class ServerItem;

namespace Ui {
class RTUPortEditor;
}

// The panel of a serial port in the tree: the serial device of the line, the
// fixed line setting (1200 8O1), the timeouts and the start preambles of the
// port's HartPort, and a check that tries to open the line. Every change goes
// straight into the Port and is announced by changed().
//
// The device box is editable: QSerialPortInfo lists no pseudo-terminals and
// no /dev/serial/by-id links, so a path may be typed and confirmed (Return or
// leaving the field). A chosen and a typed name take the same way through
// on_portChoiceComboBox_currentIndexChanged(name).
class RTUPortEditor : public QWidget
{
    Q_OBJECT

public:
    explicit RTUPortEditor(QWidget* parent = nullptr);
    ~RTUPortEditor() override;

    // Edits the item when it is a port; any other item, or null, leaves the
    // panel without a port, and every handler then does nothing.
    void setItem(ServerItem* item);
    Port* port() const;
    // The serial device and the check are locked while devices of the port
    // are polled periodically: the polling thread holds the line.
    void updateButtons();

    // Takes a device name for the port. A name that another port of the
    // server uses is refused with a warning, and the box shows the port's own
    // name again. Not a slot: Qt 6 has no currentIndexChanged(QString), so the
    // box's signals are wired to it in the constructor.
    void on_portChoiceComboBox_currentIndexChanged(const QString& name);

signals:
    void changed();

public slots:
    void update_serials();
    void on_baudrateComboBox_currentIndexChanged(int index);
    void on_databitsComboBox_currentIndexChanged(int index);
    void on_parityComboBox_currentIndexChanged(int index);
    void on_stopbitsComboBox_currentIndexChanged(int index);
    void on_b_check_clicked();
    void on_spnRequestTimeout_valueChanged(int value);
    void on_spnResponseTimeout_valueChanged(int value);
    void on_spnByteTimeout_valueChanged(int value);
    void on_spnStartPreamblesCount_valueChanged(int value);
    void on_chkTransactionClosePort_stateChanged(int state);
    void on_btnRefresh_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void fillLineBoxes();
    // The port's serial name in the box, without signals: its entry, or an
    // empty selection with the name as the edit text.
    void showSerialName();
    void showPortValues();
    static void showValue(QSpinBox* box, int value);
    void setStatus(const QString& html);

    Ui::RTUPortEditor* ui;
    QPointer<Port> m_port;
    // Set while a device name is being taken: the warning box takes the focus
    // from the edit field, and that must not take the same name a second time.
    bool m_takingName = false;
};

#endif // RTUPORTEDITOR_H
