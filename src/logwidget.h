#ifndef LOGWIDGET_H
#define LOGWIDGET_H

#include <QWidget>

namespace Ui {
class LogWidget;
}

// The HART traffic of a device as text: the lines the link writes reach
// appendLogMessage, the view keeps the newest m_modbusLogDepth of them, and
// the user can search them and save them to a file.
class LogWidget : public QWidget
{
    Q_OBJECT

public:
    explicit LogWidget(QWidget* parent = nullptr);
    ~LogWidget() override;

    void initWidget();
    // Sets the line limit through the spin box.
    void setLinesCount(int count);

public slots:
    // addr is the polling address of the device; the view does not show it.
    void appendLogMessage(int addr, const QString& msg);

    void on_btnClear_clicked();
    void on_btnSearchDown_clicked();
    void on_btnSearchUp_clicked();
    void on_txtSearch_textChanged(const QString& text);
    void on_spnLines_valueChanged(int i);
    void on_btnSaveAs_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    Ui::LogWidget* ui;
    int m_modbusLogDepth = 0;
};

#endif // LOGWIDGET_H
