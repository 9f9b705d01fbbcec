#ifndef SETTINGSDIALOG_H
#define SETTINGSDIALOG_H

#include "appsettings.h"

#include <QDialog>
#include <QFont>

namespace Ui {
class SettingsDialog;
}

// Edits a working copy of the application settings: the log flags, the
// font, the HART master role, comments in the tree and the style sheets.
// The caller hands the values in by setSettings and, after exec() returns
// Accepted, takes them back by settings().
class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SettingsDialog(QWidget* parent = nullptr);
    ~SettingsDialog() override;

    void setSettings(const AppSettings& settings);
    AppSettings settings() const { return m_settings; }
    // The font shown, taken into the settings on accept().
    QFont selectedFont() const { return m_font; }

public slots:
    void accept() override;
    void on_chkApplyCss_stateChanged(int state);
    void on_btnFont_clicked();
    void onFontSelected(const QFont& font);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showFontProperties();

    Ui::SettingsDialog* ui;
    AppSettings m_settings;
    QFont m_font;
    // Set when a font was picked in the font dialog now open.
    bool m_fontSelected = false;
};

#endif // SETTINGSDIALOG_H
