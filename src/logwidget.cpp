#include "logwidget.h"
#include "ui_logwidget.h"

#include "appsettings.h"
#include "debugqt.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QSaveFile>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// Marks the continuation lines of one message of the link.
const QString ContinuationMark = QStringLiteral("***");

} // namespace

LogWidget::LogWidget(QWidget* parent) : QWidget(parent), ui(new Ui::LogWidget)
{
    ui->setupUi(this);
    initWidget();
}

LogWidget::~LogWidget()
{
    delete ui;
}

void LogWidget::initWidget()
{
    ui->txtLog->setReadOnly(true);
    ui->txtLog->setUndoRedoEnabled(false);
    ui->txtLog->setLineWrapMode(QPlainTextEdit::NoWrap);
    setLinesCount(AppSettings::instance()->logViewLinesLimit);
    // The spin box may have held the value already: the document gets it anyway.
    on_spnLines_valueChanged(ui->spnLines->value());
    on_txtSearch_textChanged(ui->txtSearch->text());
}

void LogWidget::setLinesCount(int count)
{
    ui->spnLines->setValue(count);
}

void LogWidget::appendLogMessage(int addr, const QString& msg)
{
    Q_UNUSED(addr)
    QString text = msg;
    if (text.indexOf(ContinuationMark) > 0)
        text.replace(ContinuationMark, QLatin1Char('\n') + ContinuationMark);
    ui->txtLog->appendPlainText(text);
    // The last line, seen from its start: a long frame does not scroll the
    // view sideways.
    ui->txtLog->moveCursor(QTextCursor::End);
    ui->txtLog->moveCursor(QTextCursor::StartOfLine);
}

void LogWidget::on_btnClear_clicked()
{
    ui->txtLog->clear();
}

void LogWidget::on_btnSearchDown_clicked()
{
    ui->txtLog->find(ui->txtSearch->text());
}

void LogWidget::on_btnSearchUp_clicked()
{
    ui->txtLog->find(ui->txtSearch->text(), QTextDocument::FindBackward);
}

void LogWidget::on_txtSearch_textChanged(const QString& text)
{
    ui->btnSearchDown->setEnabled(!text.isEmpty());
    ui->btnSearchUp->setEnabled(!text.isEmpty());
}

void LogWidget::on_spnLines_valueChanged(int i)
{
    DBG(LevelInfo) << "log view lines limit" << i;
    m_modbusLogDepth = i;
    ui->txtLog->document()->setMaximumBlockCount(i);
}

void LogWidget::on_btnSaveAs_clicked()
{
    const QString fileName =
        QFileDialog::getSaveFileName(this, tr("Save As..."), QString(), tr("Logs (*.log);;All files (*.*)"));
    if (fileName.isEmpty())
        return;

    // The log is written in UTF-8; a write that fails leaves any former file as it was.
    QSaveFile file(fileName);
    bool done = file.open(QIODevice::WriteOnly | QIODevice::Text);
    if (done) {
        const QByteArray text = ui->txtLog->toPlainText().toUtf8();
        done = file.write(text) == text.size() && file.commit();
    }
    if (!done) {
        DBG(LevelErr) << "cannot write log" << fileName << file.errorString();
        QMessageBox::warning(this, tr("Save report"), tr("Cannot open file for writing log: %1").arg(fileName));
    }
}

void LogWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    QWidget::changeEvent(event);
}
