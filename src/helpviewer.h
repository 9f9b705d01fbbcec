#ifndef HELPVIEWER_H
#define HELPVIEWER_H

#include <QDialog>
#include <QString>

namespace Ui {
class HelpViewer;
}

// Shows the user manual, a plain text file in the CP-1251 encoding, read-only.
// Closing only hides the window, so the main window can show it again.
class HelpViewer : public QDialog
{
    Q_OBJECT

public:
    HelpViewer(QWidget* parent = nullptr, bool modal = false);
    ~HelpViewer() override;

    // Replaces the text by the file's; a file that cannot be read shows one
    // line saying so.
    void setContentFromFile(const QString& path);
    QString text() const;

public slots:
    void on_btnClose_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    Ui::HelpViewer* ui;
};

#endif // HELPVIEWER_H
