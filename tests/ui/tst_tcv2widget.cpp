#include "debugqt.h"
#include "deviceline.h"
#include "modalanswerer.h"
#include "statuswidget.h"
#include "tcv2widget.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QtTest>

class TestTCV2Widget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void jumperPrompt_data();
    void jumperPrompt();
    void correction();
    void adjustments_data();
    void adjustments();

private:
    template <class T>
    T* child(const QString& name) const
    {
        return m_editor->findChild<T*>(name);
    }
    void click(const QString& button) { child<QPushButton>(button)->click(); }
    bool green() const { return m_editor->statusWidget()->errorText().contains("completed successfully"); }
    QList<int> commands();
    // The configuration read with the device's input set to this type.
    void readConfiguration(int inputSignalType);

    DeviceLine m_line;
    Device* m_device = nullptr;
    QScopedPointer<TCV2Widget> m_editor;
};

void TestTCV2Widget::initTestCase()
{
    DebugQt::instance(0, nullptr);
    QVERIFY(m_line.start({{"TCV-C", {{"polling_address", 0}}}}));
    m_line.port->hart().setByteTimeout(20);
}

void TestTCV2Widget::init()
{
    m_device = m_line.addDevice(0, QStringLiteral("TCV-C"));
    QVERIFY(m_device->readDevice(0));
    m_editor.reset(new TCV2Widget);
    m_editor->setItem(m_device);
    m_editor->onUpdateButtons(true);
    m_line.sim.line().clearLog();
}

void TestTCV2Widget::cleanup()
{
    m_editor.reset();
    m_line.port->removeDevice(m_device->name());
    m_line.sim.setParam(0, "input_signal_type", 0);
}

QList<int> TestTCV2Widget::commands()
{
    QList<int> list;
    for (const hartsim::RequestRecord& record : m_line.sim.line().requests())
        list << record.command;
    return list;
}

void TestTCV2Widget::readConfiguration(int inputSignalType)
{
    m_line.sim.setParam(0, "input_signal_type", inputSignalType);
    click("btnReadCfgFromDevice");
    QVERIFY(green());
    QCOMPARE(commands(), (QList<int>{14, 15, 130}));
    QCOMPARE(child<QComboBox>("cmbInputSignalType")->currentIndex(), inputSignalType);
    m_line.sim.line().clearLog();
}

void TestTCV2Widget::jumperPrompt_data()
{
    QTest::addColumn<int>("from"); // the device's input, read first when 0 or above
    QTest::addColumn<int>("to");   // the user's choice
    QTest::addColumn<bool>("prompt");
    QTest::addColumn<QList<int>>("written"); // the writes that follow, then command 14

    QTest::newRow("not read") << -1 << 1 << false << QList<int>();
    QTest::newRow("thermometer to thermocouple") << 0 << 1 << true << QList<int>{151, 161};
    QTest::newRow("thermocouple to free ends") << 1 << 2 << false << QList<int>{151};
    // Fields back in use are written with what the form holds.
    QTest::newRow("free ends to thermometer") << 2 << 0 << true << QList<int>{49, 151, 152, 154, 156, 158};
}

void TestTCV2Widget::jumperPrompt()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(bool, prompt);
    QFETCH(QList<int>, written);

    if (from >= 0)
        readConfiguration(from);
    auto* input = child<QComboBox>("cmbInputSignalType");
    input->setCurrentIndex(to);
    QCOMPARE(DeviceWidget::isFieldModified(input), from >= 0);
    QCOMPARE(m_editor->prompt().contains("jumper"), prompt);
    // No write before the configuration was read, blue field or not.
    QCOMPARE(child<QPushButton>("btnWriteCfgInDevice")->isEnabled(), from >= 0);
    if (from < 0)
        return;

    QSignalSpy bar(m_editor.data(), &DeviceWidget::init_progress_bar);
    {
        ModalAnswerer yes({QMessageBox::Yes});
        click("btnWriteCfgInDevice");
    }
    QVERIFY(green());
    // A new input is followed by a read of the sensor's limits, one more step.
    QCOMPARE(commands(), written + QList<int>{14});
    QCOMPARE(bar.first().at(1).toInt(), int(written.size()) + 1);
    QCOMPARE(m_line.sim.param(0, "input_signal_type").toInt(), to);
    QCOMPARE(m_editor->prompt().contains("red; font: bold;"), prompt);
    QCOMPARE(child<QLabel>("lbPrompt")->text(), m_editor->prompt());
}

void TestTCV2Widget::correction()
{
    readConfiguration(0);
    auto* pages = child<QStackedWidget>("stackedWidgetCorrection");
    click("btnBeginCorrection");
    click("btnStartCorrection");
    QCOMPARE(pages->currentIndex(), 2);
    child<QDoubleSpinBox>("dspnCorrPointT1")->setValue(20);
    QSignalSpy bar(m_editor.data(), &DeviceWidget::init_progress_bar);
    {
        ModalAnswerer yes({QMessageBox::Yes});
        click("btnSavePoint1");
        QVERIFY2(yes.seen().value(0).startsWith("2-point correction|Primary Variable value = "),
                 qPrintable(yes.seen().join(';')));
    }
    QVERIFY(green());
    QCOMPARE(bar.last().at(0).toString(), QString("Write correction point 1"));
    QCOMPARE(m_line.sim.param(0, "first_correction_point").toFloat(), 20.0f);
    QCOMPARE(commands().mid(commands().indexOf(143)), (QList<int>{143, 155, 157}));
    QCOMPARE(pages->currentIndex(), 3);
    QVERIFY(child<QPushButton>("btnCancelCorrection")->isVisible() || !m_editor->isVisible());

    // A change of the configuration ends the correction under way.
    child<QComboBox>("cmbDecimalPoint")->setCurrentIndex(0);
    QCOMPARE(pages->currentIndex(), 0);
    QVERIFY(child<QPushButton>("btnWriteCfgInDevice")->isEnabled());
}

void TestTCV2Widget::adjustments_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("input");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("fetch"); // the button that sets or reads the value first
    QTest::addColumn<QString>("adjust");
    QTest::addColumn<int>("command");

    QTest::newRow("current") << "btnStartAdjust" << 0 << 2 << "btnSet4mA"
                             << "btnAdjust4mA" << 45;
    QTest::newRow("voltage") << "btnStartAdjustByU" << 1 << 3 << "btnGetVoltage"
                             << "btnAdjustVoltage" << 171;
    QTest::newRow("resistance") << "btnStartAdjustByR" << 0 << 4 << "btnGetResistance"
                                << "btnAdjustResistance" << 172;
    QTest::newRow("temperature") << "btnStartAdjustByT" << 2 << 5 << "btnGetTemperature"
                                 << "btnAdjustTemperature" << 173;
}

void TestTCV2Widget::adjustments()
{
    QFETCH(QString, start);
    QFETCH(int, input);
    QFETCH(int, page);
    QFETCH(QString, fetch);
    QFETCH(QString, adjust);
    QFETCH(int, command);

    readConfiguration(input);
    auto* pages = child<QStackedWidget>("stackedWidgetAdjust");
    auto* code = child<QDoubleSpinBox>("dspnAdjustCode");
    click(start);
    QCOMPARE(pages->currentIndex(), 1);

    // A wrong code: the device refuses it and the page stays.
    code->setValue(111);
    {
        ModalAnswerer ok({QMessageBox::Ok});
        click("btnCheckCode");
        QCOMPARE(ok.seen().size(), 1);
        QVERIFY2(ok.seen().first().startsWith("Adjustment|"), qPrintable(ok.seen().first()));
    }
    QCOMPARE(pages->currentIndex(), 1);
    QVERIFY(!m_device->isMetrologyAccessOpen());

    code->setValue(12345);
    click("btnCheckCode");
    QCOMPARE(pages->currentIndex(), page);
    QVERIFY(m_device->isMetrologyAccessOpen());
    QVERIFY(!child<QPushButton>(adjust)->isEnabled());
    click(fetch);
    QVERIFY(child<QPushButton>(adjust)->isEnabled());
    m_line.sim.line().clearLog();
    click(adjust);
    QVERIFY(green());
    QCOMPARE(commands().value(0), command);

    // Completing closes access; the current's adjustment also ends the fixed current.
    m_line.sim.line().clearLog();
    m_editor->completeAdjustParameter();
    QCOMPARE(pages->currentIndex(), 0);
    QCOMPARE(m_editor->adjustMode(), NoAdjust);
    QVERIFY(!m_device->isMetrologyAccessOpen());
    QCOMPARE(commands().contains(40), command == 45);
}

QTEST_MAIN(TestTCV2Widget)
#include "tst_tcv2widget.moc"
