#include "helpviewer.h"
#include "ui_helpviewer.h"

#include "debugqt.h"

#include <QEvent>
#include <QFile>
#include <QStringDecoder>

HelpViewer::HelpViewer(QWidget* parent, bool modal) : QDialog(parent), ui(new Ui::HelpViewer)
{
    ui->setupUi(this);
    setModal(modal);
}

HelpViewer::~HelpViewer()
{
    delete ui;
}

void HelpViewer::setContentFromFile(const QString& path)
{
    ui->textEdit->clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        DBG(LevelWarn) << "cannot open the help file" << path << ":" << file.errorString();
        ui->textEdit->setPlainText(tr("Can't open help file"));
    } else {
        // The English manual is UTF-8, the Russian one CP-1251: text that is
        // not valid UTF-8 is read as CP-1251.
        const QByteArray bytes = file.readAll();
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        QString text = utf8.decode(bytes);
        if (utf8.hasError()) {
            QStringDecoder cp1251("windows-1251");
            if (cp1251.isValid()) {
                text = cp1251.decode(bytes);
            } else {
                // Without ICU the codec is missing: show the bytes one to one
                // rather than nothing.
                DBG(LevelErr) << "no windows-1251 decoder; the help file is shown as Latin-1";
                text = QString::fromLatin1(bytes);
            }
        }
        ui->textEdit->setPlainText(text);
    }
    ui->textEdit->moveCursor(QTextCursor::Start);
    ui->textEdit->ensureCursorVisible();
}

QString HelpViewer::text() const
{
    return ui->textEdit->toPlainText();
}

void HelpViewer::on_btnClose_clicked()
{
    hide();
}

void HelpViewer::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QDialog::changeEvent(event);
}
