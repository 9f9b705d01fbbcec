#ifndef TESTS_MODALANSWERER_H
#define TESTS_MODALANSWERER_H

// Answers the modal dialogs that open while it lives, each once, in order,
// and records in seen() what each said: "title|text" of a message box,
// "title|file" of a file dialog, "title|<class name>" of any other; progress
// dialogs are left alone. Each takes the next answer: a message box clicks
// that standard button (its escape button when it has none or none is left),
// a file dialog takes that file (rejected without one), any other dialog is
// rejected. Given an action instead, it hands every dialog to it.

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QTimer>

#include <functional>

class ModalAnswerer : public QObject
{
public:
    using Action = std::function<void(QDialog*)>;

    explicit ModalAnswerer(const QVariantList& answers = {}) : m_answers(answers) { start(); }
    explicit ModalAnswerer(Action action) : m_action(std::move(action)) { start(); }

    QStringList seen() const { return m_seen; }

private:
    // Fires on each pass of whatever event loop runs, the dialog's own included.
    void start()
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalAnswerer::poll);
        m_timer.start(10);
    }

    void poll()
    {
        QWidget* modal = QApplication::activeModalWidget();
        auto* files = qobject_cast<QFileDialog*>(modal);
        if (files && files == m_files) // it may not take a name at once: again until it closes
            return chooseFile();
        if (!modal || m_handled.contains(modal) || qobject_cast<QProgressDialog*>(modal))
            return;
        m_handled << modal;
        auto* box = qobject_cast<QMessageBox*>(modal);
        m_seen << modal->windowTitle() + QLatin1Char('|') +
                      (box     ? box->text()
                       : files ? QStringLiteral("file")
                               : modal->metaObject()->className());
        if (m_action)
            return m_action(qobject_cast<QDialog*>(modal));

        const QVariant answer = m_answers.isEmpty() ? QVariant() : m_answers.takeFirst();
        QObject* target = modal;
        const char* slot = "reject";
        if (box) {
            QAbstractButton* button = box->button(QMessageBox::StandardButton(answer.toInt()));
            target = button ? button : box->escapeButton() ? box->escapeButton() : box->buttons().value(0);
            slot = "click";
        } else if (files && !answer.toString().isEmpty()) {
            m_files = files;
            m_fileName = answer.toString();
            return chooseFile();
        }
        // Queued: an answer may open the next dialog, which this timer answers.
        QMetaObject::invokeMethod(target, slot, Qt::QueuedConnection);
    }

    // The name field keeps what a user types: a name is put there only while it has no focus.
    void chooseFile()
    {
        if (QWidget* focus = m_files->focusWidget())
            focus->clearFocus();
        m_files->selectFile(m_fileName);
        QMetaObject::invokeMethod(m_files, "accept", Qt::QueuedConnection);
    }

    QVariantList m_answers;
    Action m_action;
    QStringList m_seen;
    QList<QPointer<QWidget>> m_handled;
    QPointer<QFileDialog> m_files;
    QString m_fileName;
    QTimer m_timer;
};

#endif // TESTS_MODALANSWERER_H
