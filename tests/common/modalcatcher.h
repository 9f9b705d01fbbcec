#ifndef TESTS_MODALCATCHER_H
#define TESTS_MODALCATCHER_H

// Answers the modal dialogs that open while it lives: records the title and
// text of each message box and hands the dialog to an action, which by
// default presses the box's default button (or accepts any other dialog).

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <functional>

class ModalCatcher
{
public:
    using Action = std::function<void(QDialog*)>;

    explicit ModalCatcher(Action action = Action()) : m_action(std::move(action))
    {
        // Fires on each pass of whatever event loop runs, the dialog's own
        // included.
        m_timer.setInterval(0);
        QObject::connect(&m_timer, &QTimer::timeout, [this]() { answer(); });
        m_timer.start();
    }

    int count() const { return m_count; }
    QString title() const { return m_title; }
    QString text() const { return m_text; }

private:
    void answer()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog == m_answered)
            return;
        m_answered = dialog;
        ++m_count;
        if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
            m_title = box->windowTitle();
            m_text = box->text();
        }
        if (m_action)
            m_action(dialog);
        else if (auto* box = qobject_cast<QMessageBox*>(dialog); box && box->defaultButton())
            box->defaultButton()->click();
        else
            dialog->accept();
    }

    Action m_action;
    QTimer m_timer;
    QPointer<QDialog> m_answered;
    int m_count = 0;
    QString m_title;
    QString m_text;
};

#endif // TESTS_MODALCATCHER_H
