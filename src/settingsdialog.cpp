#include "settingsdialog.h"
#include "ui_settingsdialog.h"

#include <QEvent>
#include <QFontDialog>
#include <QMessageBox>

namespace {

const QString FlagErr = QStringLiteral("ERR");
const QString FlagWarn = QStringLiteral("WARN");
const QString FlagInfo = QStringLiteral("INFO");

} // namespace

// The working copy starts as a copy of the program's settings; a default
// AppSettings would set the data paths afresh from the working directory.
SettingsDialog::SettingsDialog(QWidget* parent)
    : QDialog(parent), ui(new Ui::SettingsDialog), m_settings(*AppSettings::instance())
{
    ui->setupUi(this);
    ui->grboxUnused->hide();
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    setSettings(m_settings);
}

SettingsDialog::~SettingsDialog()
{
    delete ui;
}

void SettingsDialog::setSettings(const AppSettings& settings)
{
    m_settings = settings;
    ui->b_dbg_err->setChecked(settings.log_flags.contains(FlagErr));
    ui->b_dbg_warn->setChecked(settings.log_flags.contains(FlagWarn));
    ui->b_dbg_info->setChecked(settings.log_flags.contains(FlagInfo));
    ui->chkAddComments->setChecked(settings.bInsertComments);
    ui->chkApplyCss->setChecked(settings.bApplyCss);
    ui->rbPrimaryMaster->setChecked(settings.bPrimaryMaster);
    ui->rbSecondaryMaster->setChecked(!settings.bPrimaryMaster);
    // Style sheets set the font of their own.
    ui->btnFont->setEnabled(!settings.bApplyCss);
    m_font = settings.font;
    showFontProperties();
}

void SettingsDialog::showFontProperties()
{
    // Bold from a weight above normal, as a medium weight already is.
    ui->lbFont->setText(tr("%1 %2pt %3 %4")
                            .arg(m_font.family(), QString::number(m_font.pointSize()),
                                 m_font.weight() > QFont::Normal ? tr("bold") : QString(),
                                 m_font.style() == QFont::StyleItalic ? tr("italic") : QString()));
}

void SettingsDialog::on_chkApplyCss_stateChanged(int state)
{
    ui->btnFont->setEnabled(state != Qt::Checked);
}

void SettingsDialog::on_btnFont_clicked()
{
    QFontDialog dialog(m_font, this);
    dialog.setObjectName(QStringLiteral("fontDialog"));
    connect(&dialog, &QFontDialog::currentFontChanged, this, &SettingsDialog::onFontSelected);
    m_fontSelected = false;
    // Only a font the user picked counts, and only when the dialog is
    // accepted: a cancelled choice leaves the font as it was.
    if (dialog.exec() == QDialog::Accepted && m_fontSelected)
        m_font = dialog.selectedFont();
    showFontProperties();
}

void SettingsDialog::onFontSelected(const QFont& font)
{
    Q_UNUSED(font)
    m_fontSelected = true;
}

void SettingsDialog::accept()
{
    m_settings.log_flags.clear();
    if (ui->b_dbg_err->isChecked())
        m_settings.log_flags << FlagErr;
    if (ui->b_dbg_warn->isChecked())
        m_settings.log_flags << FlagWarn;
    if (ui->b_dbg_info->isChecked())
        m_settings.log_flags << FlagInfo;
    m_settings.bInsertComments = ui->chkAddComments->isChecked();
    // The style sheets are applied at start only.
    const bool applyCss = ui->chkApplyCss->isChecked();
    if (applyCss != m_settings.bApplyCss) {
        QMessageBox::warning(this, tr("Settings changes"),
                             tr("Changes w'll take effect after the program is restarted."));
        m_settings.bApplyCss = applyCss;
    }
    m_settings.bPrimaryMaster = ui->rbPrimaryMaster->isChecked();
    m_settings.font = m_font;
    QDialog::accept();
}

void SettingsDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        showFontProperties();
    }
    QDialog::changeEvent(event);
}
