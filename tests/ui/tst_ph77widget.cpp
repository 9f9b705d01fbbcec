#include "columns.h"
#include "commonwidget.h"
#include "editorfixture.h"
#include "measurewidget.h"
#include "ph77widget.h"

#include <QComboBox>
#include <QLabel>

class TestPH77Widget : public QObject, public EditorFixture<PH77Widget>
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(startLine({{"pH-7702", {{"polling_address", 0}}}})); }
    void init() { QVERIFY(openEditor(0, QStringLiteral("pH-7702"))); }
    void cleanup() { closeEditor(); }

    void bufferWatch_data()
    {
        QTest::addColumn<QList<float>>("emfs"); // slot 1 of each response, in order; none for a failed one
        addColumns<float, QColor, QString>({"buffer", "colour", "status"});
        const QColor moving(Qt::magenta), still(Qt::darkGreen), none(Qt::black);
        QTest::newRow("first response") << QList<float>{15.98f} << 6.86f << moving << "";
        QTest::newRow("0.1 up") << QList<float>{15.98f, 16.08f} << 6.86f << still << "";
        QTest::newRow("0.1 down, far from 0") << QList<float>{-412.3f, -412.4f} << 9.18f << still << "";
        QTest::newRow("0.11 up") << QList<float>{15.98f, 16.09f} << 6.86f << moving << "";
        QTest::newRow("no buffer") << QList<float>{15.98f} << float(qQNaN()) << none << "Undefined";
        QTest::newRow("failed") << QList<float>{} << 6.86f << none << "Error";
    }

    void bufferWatch()
    {
        QFETCH(QList<float>, emfs);
        QFETCH(float, buffer);
        QFETCH(QColor, colour);
        QFETCH(QString, status);
        // The real watch starts; the responses below come before any of its own.
        click("btnStartGraduation");
        QVERIFY(editor->isWatching());
        auto respond = [this](const QVariantMap& map) {
            QVERIFY(
                QMetaObject::invokeMethod(editor.data(), "updateBufferInfoByResponsePT33", Q_ARG(QVariantMap, map)));
        };
        if (emfs.isEmpty())
            respond({{"slot_0_value", 0.0}, {"statusCode", "00 00"}, {"errorText", "timeout"}});
        for (float emf : emfs)
            respond({{"slot_0_value", 25.0f},
                     {"slot_0_unit_code", 32},
                     {"slot_1_value", emf},
                     {"slot_1_unit_code", 36},
                     {"slot_2_value", buffer},
                     {"slot_2_unit_code", 59}});

        auto* spin = child<QDoubleSpinBox>("dspnPH_p1");
        QCOMPARE(spin->palette().color(QPalette::Active, QPalette::Text), colour);
        QVERIFY(child<QLabel>("lbGrdStatus_p1")->text().contains(status));
        // The EMF and the temperature show from the second response on.
        const bool second = emfs.size() > 1;
        QCOMPARE(child<QLabel>("lbEds_p1")->text(),
                 second ? QString::number(emfs.last(), 'f', 2) + ' ' + Device::getUnitCodeText(36, 0) : QString());
        QCOMPARE(child<QLabel>("lbT_p1")->text(), second ? "25.00 " + Device::getUnitCodeText(32, 0) : QString());
        const bool shown = colour != QColor(Qt::black);
        QCOMPARE(child<QPushButton>("btnSetPH_p1")->isEnabled(), shown);
        if (shown)
            QCOMPARE(spin->value(), double(qRound(buffer * 100) / 100.0));
    }

    void graduationOnTheSimulator()
    {
        readConfiguration();
        child<QComboBox>("cmbGrdType")->setCurrentIndex(0);
        click("btnStartGraduation");
        QVERIFY(child<QPushButton>("btnStartPoint_2")->isHidden());
        // The measurement tab waits while the watch has the line.
        QVERIFY(!editor->measureWidget()->isEnabled());
        // The solution is the buffer 6.86, slot 2 of the device's first response.
        QTRY_VERIFY(child<QPushButton>("btnSetPH_p1")->isEnabled());
        QCOMPARE(child<QDoubleSpinBox>("dspnPH_p1")->value(), 6.86);

        auto* ei = child<QDoubleSpinBox>("dspnEi");
        const double eiBefore = ei->value();
        clearLog();
        click("btnSetPH_p1");
        QVERIFY(green());
        QVERIFY(!editor->isWatching());
        QVERIFY(editor->measureWidget()->isEnabled());
        QCOMPARE(commands().mid(commands().indexOf(151)), (QList<int>{151, 150}));
        QCOMPARE(line.sim.param(0, "current_ph_1").toFloat(), 6.86f);
        QVERIFY(child<QLabel>("lbGrdStatus_p1")->text().contains("Saved"));
        // The device's new Ei is in its field, not blue.
        QVERIFY(qAbs(ei->value() - line.sim.param(0, "ei_isopotential_point").toDouble()) < 1e-3);
        QVERIFY(ei->value() != eiBefore);
        QVERIFY(!DeviceWidget::isFieldModified(ei));
    }

    void watchStops_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("editor leaves the device") << "setItem";
        QTest::newRow("program closes") << "close";
        QTest::newRow("editor destroyed") << "destroy";
    }

    void watchStops()
    {
        QFETCH(QString, how);
        click("btnStartGraduation");
        QVERIFY(polled());
        if (how == "setItem")
            editor->setItem(nullptr);
        else if (how == "close")
            emit editor->closeApplication();
        else
            editor.reset();
        QVERIFY(!polled());
        if (editor) {
            QVERIFY(!editor->isWatching());
            QCOMPARE(child<QStackedWidget>("stackedWidgetGraduation")->currentIndex(), 0);
        }
    }

    void adjustments_data()
    {
        addColumns<QString, int, QString, double, QString>({"start", "page", "spin", "value", "button"});
        QTest::addColumn<QList<int>>("written"); // the write, then the read back
        QTest::addColumn<QString>("key");        // where the simulator keeps it
        const QString u = "btnStartURRAdjust";   // U, Rc and Rt
        QTest::newRow("U point 1") << u << 3 << "dspnAdjustU" << 15.0 << "btnAdjustU_p1" << QList<int>{172, 171}
                                   << "adjust_U_p1";
        QTest::newRow("U point 2") << u << 3 << "dspnAdjustU" << 180.0 << "btnAdjustU_p2" << QList<int>{172, 171}
                                   << "adjust_U_p2";
        QTest::newRow("Rc point 2") << u << 3 << "dspnAdjustRc" << 5.5 << "btnAdjustRc_p2" << QList<int>{174, 171}
                                    << "adjust_Rc_p2";
        QTest::newRow("Rt") << u << 3 << "dspnAdjustRt" << 110.0 << "btnAdjustRt" << QList<int>{173, 171}
                            << "adjust_Rt_p";
        QTest::newRow("Ei and S ranges") << "btnEiSRangeCorrection" << 4 << "dspnEiMin" << -50.0 << "btnSaveEiSRanges"
                                         << QList<int>{176} << "ei_min";
        QTest::newRow("sensor") << "btnStartSensorParam" << 5 << "dspnSensorParamMax" << 13.0 << "btnSaveSensorParam"
                                << QList<int>{49, 142} << "sensor_range_max";
    }

    void adjustments()
    {
        QFETCH(QString, start);
        QFETCH(int, page);
        QFETCH(QString, spin);
        QFETCH(double, value);
        QFETCH(QString, button);
        QFETCH(QString, key);
        readConfiguration();
        openAccess(start, page);
        child<QDoubleSpinBox>(spin)->setValue(value);
        clearLog();
        click(button);
        QVERIFY(green());
        QTEST(commands(), "written");
        QCOMPARE(line.sim.param(0, key).toDouble(), value);
        QVERIFY(editor->completeAdjustParameter());
        QCOMPARE(child<QStackedWidget>("stackedWidgetAdjust")->currentIndex(), 0);
        QVERIFY(!device->isMetrologyAccessOpen());
    }

    void adjustmentWatch()
    {
        readConfiguration();
        openAccess("btnStartURRAdjust", 3);
        click("btnAdjustInfo");
        QVERIFY(editor->isWatching());
        QVERIFY(!child<QPushButton>("btnAdjustRc_p1")->isEnabled());
        QVERIFY(!child<QWidget>("tabGraduation")->isEnabled());
        // U, Rc and Rt, each in its own unit: the simulator's variables 2, 7 and 5.
        auto* rc = child<QLabel>("lbRc");
        QTRY_VERIFY(!rc->text().isEmpty());
        QVERIFY2(
            QRegularExpression("^\\d+\\.\\d{3} " + Device::getUnitCodeText(163, 0) + "$").match(rc->text()).hasMatch(),
            qPrintable(rc->text()));
        QVERIFY(child<QLabel>("lbU")->text().endsWith(" " + Device::getUnitCodeText(36, 0)));
        QVERIFY(child<QLabel>("lbRt")->text().endsWith(" " + Device::getUnitCodeText(37, 0)));
        // Completing ends the watch with the access.
        QVERIFY(editor->completeAdjustParameter());
        QVERIFY(!editor->isWatching());
        QVERIFY(!polled());
        QVERIFY(child<QWidget>("tabGraduation")->isEnabled());
    }

private:
    bool polled() const { return device->deviceTagState() & Device::TagStatePolled; }
    void readConfiguration()
    {
        click("btnReadCfgFromDevice");
        QVERIFY(green());
        // The indication range is read with the rest: 141 writes it.
        QCOMPARE(commands(), (QList<int>{130, 134, 140, 150, 152, 14, 15}));
        QCOMPARE(child<QDoubleSpinBox>("dspnMaxIndication")->value(), 14.0);
        clearLog();
    }
};

QTEST_MAIN(TestPH77Widget)
#include "tst_ph77widget.moc"
