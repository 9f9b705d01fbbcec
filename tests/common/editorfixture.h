#ifndef TESTS_EDITORFIXTURE_H
#define TESTS_EDITORFIXTURE_H

// An editor of the program on a device of a simulated line, for the tests of
// the editors: a field found by its name, a button pressed with the boxes it
// brings up answered, the verdict in the status line, the commands the line
// served, and the metrology access the adjustments open.

#include "debugqt.h"
#include "deviceline.h"
#include "devicewidget.h"
#include "modalanswerer.h"
#include "statuswidget.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QtTest>

template <class Editor>
class EditorFixture
{
public:
    // The line of these devices, quiet.
    bool startLine(const QList<SimulatedLine::Device>& devices)
    {
        DebugQt::instance(0, nullptr);
        return line.start(devices);
    }

    // A new editor on a device of the template at the address, identified by
    // command 0 first unless told not to; the line's log starts after it.
    bool openEditor(int address, const QString& templateName, bool identify = true)
    {
        device = line.addDevice(address, templateName);
        if (identify && !device->readDevice(0))
            return false;
        editor.reset(new Editor);
        editor->setItem(device);
        if (identify)
            editor->onUpdateButtons(true);
        clearLog();
        return true;
    }

    void closeEditor()
    {
        editor.reset();
        if (device)
            line.port->removeDevice(device->name());
        device = nullptr;
        line.sim.line().clearFaults();
    }

    template <class T>
    T* child(const QString& name) const
    {
        return editor->template findChild<T*>(name);
    }
    void click(const QString& button) const { child<QPushButton>(button)->click(); }
    // Presses the button with these answers to the boxes it brings up; what they said.
    QStringList clickAnswering(const QString& button, const QVariantList& answers = {}) const
    {
        ModalAnswerer answerer(answers);
        click(button);
        return answerer.seen();
    }
    QString verdict() const { return editor->statusWidget()->errorText(); }
    bool green() const { return verdict().contains(QLatin1String("completed successfully")); }
    void clearLog() { line.sim.line().clearLog(); }

    // The commands the line served since its log was cleared, but the one left out.
    QList<int> commands(int leftOut = -1)
    {
        QList<int> list;
        for (const hartsim::RequestRecord& record : line.sim.line().requests()) {
            if (record.command != leftOut)
                list << record.command;
        }
        return list;
    }

    // The adjustment behind the start button: its access page, a wrong code
    // refused there with a box, then the right code, with these answers to
    // what it brings up, opening the device's metrology access and the
    // adjustment's page. The line's log starts with the right code.
    void openAccess(const QString& start, int page, const QVariantList& answers = {})
    {
        auto* pages = child<QStackedWidget>(QStringLiteral("stackedWidgetAdjust"));
        auto* code = child<QDoubleSpinBox>(QStringLiteral("dspnAdjustCode"));
        click(start);
        QCOMPARE(pages->currentIndex(), 1);
        code->setValue(111);
        const QStringList refused = clickAnswering(QStringLiteral("btnCheckCode"), {QMessageBox::Ok});
        QVERIFY2(refused.size() == 1 && refused.first().startsWith(QLatin1String("Adjustment|")),
                 qPrintable(refused.join(';')));
        QCOMPARE(pages->currentIndex(), 1);
        QVERIFY(!device->isMetrologyAccessOpen());
        code->setValue(12345);
        clearLog();
        clickAnswering(QStringLiteral("btnCheckCode"), answers);
        QCOMPARE(pages->currentIndex(), page);
        QVERIFY(device->isMetrologyAccessOpen());
    }

    DeviceLine line;
    Device* device = nullptr;
    QScopedPointer<Editor> editor;
};

#endif // TESTS_EDITORFIXTURE_H
