#include "columns.h"
#include "editorfixture.h"
#include "tcv2widget.h"

#include <QComboBox>
#include <QLabel>

class TestTCV2Widget : public QObject, public EditorFixture<TCV2Widget>
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startLine({{"TCV-C", {{"polling_address", 0}}}})); }
    void init() { QVERIFY(openEditor(0, QStringLiteral("TCV-C"))); }
    void cleanup()
    {
        closeEditor();
        line.sim.setParam(0, "input_signal_type", 0);
        line.sim.setParam(0, "sensor_type", 0);
    }

    void write_data()
    {
        QTest::addColumn<int>("from");    // the device's input, read first when 0 or above
        QTest::addColumn<QString>("key"); // of the field the user changes
        QTest::addColumn<int>("to");
        QTest::addColumn<bool>("prompt");        // to move the jumper
        QTest::addColumn<QList<int>>("written"); // the writes that follow, then command 14
        const QString input = "input_signal_type";
        QTest::newRow("not read") << -1 << input << 1 << false << QList<int>();
        QTest::newRow("thermometer to thermocouple") << 0 << input << 1 << true << QList<int>{151, 161};
        QTest::newRow("thermocouple to free ends") << 1 << input << 2 << false << QList<int>{151};
        // Fields back in use are written with what the form holds.
        QTest::newRow("free ends to thermometer") << 2 << input << 0 << true << QList<int>{49, 151, 152, 154, 156, 158};
        QTest::newRow("sensor alone") << 0 << "sensor_type" << 2 << false << QList<int>{152};
    }

    void write()
    {
        QFETCH(int, from);
        QFETCH(QString, key);
        QFETCH(int, to);
        QFETCH(bool, prompt);
        QFETCH(QList<int>, written);
        if (from >= 0)
            readConfiguration(from);
        auto* box = child<QComboBox>(key == "sensor_type" ? "cmbSensorType" : "cmbInputSignalType");
        box->setCurrentIndex(to);
        QCOMPARE(DeviceWidget::isFieldModified(box), from >= 0);
        QCOMPARE(editor->prompt().contains("jumper"), prompt);
        // No write before the configuration was read, blue field or not.
        QCOMPARE(child<QPushButton>("btnWriteCfgInDevice")->isEnabled(), from >= 0);
        if (from < 0)
            return;
        QSignalSpy bar(editor.data(), &DeviceWidget::init_progress_bar);
        clickAnswering("btnWriteCfgInDevice", {QMessageBox::Yes});
        QVERIFY(green());
        // A new input or sensor is followed by a read of the sensor's limits, one more step.
        QCOMPARE(commands(), written + QList<int>{14});
        QCOMPARE(bar.first().at(1).toInt(), int(written.size()) + 1);
        QCOMPARE(line.sim.param(0, key).toInt(), to);
        QCOMPARE(editor->prompt().contains("red; font: bold;"), prompt);
        QCOMPARE(child<QLabel>("lbPrompt")->text(), editor->prompt());
    }

    void correction()
    {
        readConfiguration(0);
        auto* pages = child<QStackedWidget>("stackedWidgetCorrection");
        click("btnBeginCorrection");
        click("btnStartCorrection");
        QCOMPARE(pages->currentIndex(), 2);
        child<QDoubleSpinBox>("dspnCorrPointT1")->setValue(20);
        QSignalSpy bar(editor.data(), &DeviceWidget::init_progress_bar);
        const QStringList seen = clickAnswering("btnSavePoint1", {QMessageBox::Yes});
        QVERIFY2(seen.value(0).startsWith("2-point correction|Primary Variable value = "), qPrintable(seen.join(';')));
        QVERIFY(green());
        QCOMPARE(bar.last().at(0).toString(), QString("Write correction point 1"));
        QCOMPARE(line.sim.param(0, "first_correction_point").toFloat(), 20.0f);
        QCOMPARE(commands().mid(commands().indexOf(143)), (QList<int>{143, 155, 157}));
        QCOMPARE(pages->currentIndex(), 3);
        // A change of the configuration ends the correction under way.
        child<QComboBox>("cmbDecimalPoint")->setCurrentIndex(0);
        QCOMPARE(pages->currentIndex(), 0);
        QVERIFY(child<QPushButton>("btnWriteCfgInDevice")->isEnabled());
    }

    void adjustments_data()
    {
        // fetch: the button that sets or reads the value first
        addColumns<QString, int, int, QString, QString, int>({"start", "input", "page", "fetch", "adjust", "command"});
        QTest::newRow("current") << "btnStartAdjust" << 0 << 2 << "btnSet4mA" << QString("btnAdjust4mA") << 45;
        QTest::newRow("voltage") << "btnStartAdjustByU" << 1 << 3 << "btnGetVoltage" << QString("btnAdjustVoltage")
                                 << 171;
        QTest::newRow("resistance") << "btnStartAdjustByR" << 0 << 4 << "btnGetResistance"
                                    << QString("btnAdjustResistance") << 172;
        QTest::newRow("temperature") << "btnStartAdjustByT" << 2 << 5 << "btnGetTemperature"
                                     << QString("btnAdjustTemperature") << 173;
    }

    void adjustments()
    {
        QFETCH(QString, start);
        QFETCH(int, input);
        QFETCH(int, page);
        QFETCH(QString, fetch);
        QFETCH(QString, adjust);
        QFETCH(int, command);
        readConfiguration(input);
        openAccess(start, page);
        QVERIFY(!child<QPushButton>(adjust)->isEnabled());
        click(fetch);
        QVERIFY(child<QPushButton>(adjust)->isEnabled());
        clearLog();
        click(adjust);
        QVERIFY(green());
        QCOMPARE(commands().value(0), command);
        // Completing closes access; the current's adjustment also ends the fixed current.
        clearLog();
        editor->completeAdjustParameter();
        QCOMPARE(child<QStackedWidget>("stackedWidgetAdjust")->currentIndex(), 0);
        QCOMPARE(editor->adjustMode(), NoAdjust);
        QVERIFY(!device->isMetrologyAccessOpen());
        QCOMPARE(commands().contains(40), command == 45);
    }

private:
    // The configuration read with the device's input set to this type.
    void readConfiguration(int inputSignalType)
    {
        line.sim.setParam(0, "input_signal_type", inputSignalType);
        click("btnReadCfgFromDevice");
        QVERIFY(green());
        QCOMPARE(commands(), (QList<int>{14, 15, 130}));
        QCOMPARE(child<QComboBox>("cmbInputSignalType")->currentIndex(), inputSignalType);
        clearLog();
    }
};

QTEST_MAIN(TestTCV2Widget)
#include "tst_tcv2widget.moc"
