#include "commonwidget.h"
#include "debugqt.h"
#include "deviceline.h"
#include "measurewidget.h"
#include "modalanswerer.h"
#include "ph77widget.h"
#include "statuswidget.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QtTest>

class TestPH77Widget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void wrongIdentity();
    void bufferWatch_data();
    void bufferWatch();
    void graduationOnTheSimulator();
    void watchStops_data();
    void watchStops();
    void adjustments_data();
    void adjustments();
    void adjustmentWatch();

private:
    template <class T>
    T* child(const QString& name) const
    {
        return m_editor->findChild<T*>(name);
    }
    void click(const QString& button) { child<QPushButton>(button)->click(); }
    bool green() const { return m_editor->statusWidget()->errorText().contains("completed successfully"); }
    QList<int> commands();
    void readConfiguration();
    // The access page of the metrology start button, with the right code.
    void openAccess(const QString& start);
    bool polled() const { return m_device->deviceTagState() & Device::TagStatePolled; }

    DeviceLine m_line;
    Device* m_device = nullptr;
    QScopedPointer<PH77Widget> m_editor;
};

void TestPH77Widget::initTestCase()
{
    DebugQt::instance(0, nullptr);
    QVERIFY(m_line.start({{"pH-7702", {{"polling_address", 0}}}}));
    m_line.port->hart().setByteTimeout(20);
}

void TestPH77Widget::init()
{
    m_device = m_line.addDevice(0, QStringLiteral("pH-7702"));
    QVERIFY(m_device->readDevice(0));
    m_editor.reset(new PH77Widget);
    m_editor->setItem(m_device);
    m_editor->onUpdateButtons(true);
    m_line.sim.line().clearLog();
}

void TestPH77Widget::cleanup()
{
    m_editor.reset();
    m_line.port->removeDevice(m_device->name());
    m_line.sim.setParam(0, "device_type_code", 0x94);
}

QList<int> TestPH77Widget::commands()
{
    QList<int> list;
    for (const hartsim::RequestRecord& record : m_line.sim.line().requests())
        list << record.command;
    return list;
}

void TestPH77Widget::readConfiguration()
{
    click("btnReadCfgFromDevice");
    QVERIFY(green());
    // The indication range is read with the rest: 141 writes it.
    QCOMPARE(commands(), (QList<int>{130, 134, 140, 150, 152, 14, 15}));
    QCOMPARE(child<QDoubleSpinBox>("dspnMaxIndication")->value(), 14.0);
    m_line.sim.line().clearLog();
}

void TestPH77Widget::openAccess(const QString& start)
{
    readConfiguration();
    click(start);
    child<QDoubleSpinBox>("dspnAdjustCode")->setValue(12345);
    click("btnCheckCode");
    QVERIFY(m_device->isMetrologyAccessOpen());
}

void TestPH77Widget::wrongIdentity()
{
    m_line.sim.setParam(0, "device_type_code", 0x95);
    ModalAnswerer cancel({QMessageBox::Cancel});
    m_editor->commonWidget()->on_btnCheck_clicked();
    QCOMPARE(cancel.seen().size(), 1);
    QVERIFY2(cancel.seen().first().startsWith("Check device|Wrong template"), qPrintable(cancel.seen().first()));
}

void TestPH77Widget::bufferWatch_data()
{
    QTest::addColumn<QList<float>>("emfs"); // slot 1 of each response, in order; none for a failed one
    QTest::addColumn<float>("buffer");
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("emfShown");

    const QColor moving(Qt::magenta), still(Qt::darkGreen), none(Qt::black);
    QTest::newRow("first response") << QList<float>{15.98f} << 6.86f << moving << "" << false;
    QTest::newRow("0.1 up") << QList<float>{15.98f, 16.08f} << 6.86f << still << "" << true;
    QTest::newRow("0.1 down, far from 0") << QList<float>{-412.3f, -412.4f} << 9.18f << still << "" << true;
    QTest::newRow("0.11 up") << QList<float>{15.98f, 16.09f} << 6.86f << moving << "" << true;
    QTest::newRow("no buffer") << QList<float>{15.98f} << float(qQNaN()) << none << "Undefined" << false;
    QTest::newRow("failed") << QList<float>{} << 6.86f << none << "Error" << false;
}

void TestPH77Widget::bufferWatch()
{
    QFETCH(QList<float>, emfs);
    QFETCH(float, buffer);
    QFETCH(QColor, colour);
    QFETCH(QString, status);
    QFETCH(bool, emfShown);

    // The real watch starts; the responses below come before any of its own.
    click("btnStartGraduation");
    QVERIFY(m_editor->isWatching());
    auto respond = [this](const QVariantMap& map) {
        QVERIFY(QMetaObject::invokeMethod(m_editor.data(), "updateBufferInfoByResponsePT33", Q_ARG(QVariantMap, map)));
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
    QCOMPARE(child<QLabel>("lbGrdStatus_p1")->text().contains(status), true);
    QCOMPARE(child<QLabel>("lbEds_p1")->text().startsWith(QString::number(emfs.value(emfs.size() - 1), 'f', 2)),
             emfShown);
    const bool shown = colour != QColor(Qt::black);
    QCOMPARE(child<QPushButton>("btnSetPH_p1")->isEnabled(), shown);
    if (shown)
        QCOMPARE(spin->value(), double(qRound(buffer * 100) / 100.0));
}

void TestPH77Widget::graduationOnTheSimulator()
{
    readConfiguration();
    child<QComboBox>("cmbGrdType")->setCurrentIndex(0);
    click("btnStartGraduation");
    QVERIFY(child<QPushButton>("btnStartPoint_2")->isHidden());
    // The measurement tab waits while the watch has the line.
    QVERIFY(!m_editor->measureWidget()->isEnabled());

    // The solution is the buffer 6.86; the EMF shows from the second response on.
    auto* emf = child<QLabel>("lbEds_p1");
    QTRY_VERIFY_WITH_TIMEOUT(!emf->text().isEmpty(), 6000);
    QVERIFY2(emf->text().endsWith(Device::getUnitCodeText(36, 0)), qPrintable(emf->text()));
    QVERIFY(child<QLabel>("lbT_p1")->text().startsWith("25.00 "));
    QCOMPARE(child<QDoubleSpinBox>("dspnPH_p1")->value(), 6.86);

    const double eiBefore = child<QDoubleSpinBox>("dspnEi")->value();
    m_line.sim.line().clearLog();
    click("btnSetPH_p1");
    QVERIFY(green());
    QVERIFY(!m_editor->isWatching());
    QVERIFY(m_editor->measureWidget()->isEnabled());
    QCOMPARE(commands().mid(commands().indexOf(151)), (QList<int>{151, 150}));
    QCOMPARE(m_line.sim.param(0, "current_ph_1").toFloat(), 6.86f);
    QVERIFY(child<QLabel>("lbGrdStatus_p1")->text().contains("Saved"));
    // The device's new Ei is in its field, not blue.
    QVERIFY(qAbs(child<QDoubleSpinBox>("dspnEi")->value() - m_line.sim.param(0, "ei_isopotential_point").toDouble()) <
            1e-3);
    QVERIFY(child<QDoubleSpinBox>("dspnEi")->value() != eiBefore);
    QVERIFY(!DeviceWidget::isFieldModified(child<QDoubleSpinBox>("dspnEi")));
}

void TestPH77Widget::watchStops_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("editor leaves the device") << "setItem";
    QTest::newRow("program closes") << "close";
    QTest::newRow("editor destroyed") << "destroy";
}

void TestPH77Widget::watchStops()
{
    QFETCH(QString, how);
    click("btnStartGraduation");
    QVERIFY(m_editor->isWatching());
    QVERIFY(polled());
    if (how == "setItem")
        m_editor->setItem(nullptr);
    else if (how == "close")
        emit m_editor->closeApplication();
    else
        m_editor.reset();
    QVERIFY(!polled());
    if (m_editor) {
        QVERIFY(!m_editor->isWatching());
        QCOMPARE(child<QStackedWidget>("stackedWidgetGraduation")->currentIndex(), 0);
    }
}

void TestPH77Widget::adjustments_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("spin");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QList<int>>("written"); // the write, then the read back
    QTest::addColumn<QString>("key");        // where the simulator keeps it

    QTest::newRow("U point 1") << "btnStartURRAdjust" << 3 << "dspnAdjustU" << 15.0 << "btnAdjustU_p1"
                               << QList<int>{172, 171} << "adjust_U_p1";
    QTest::newRow("U point 2") << "btnStartURRAdjust" << 3 << "dspnAdjustU" << 180.0 << "btnAdjustU_p2"
                               << QList<int>{172, 171} << "adjust_U_p2";
    QTest::newRow("Rc point 2") << "btnStartURRAdjust" << 3 << "dspnAdjustRc" << 5.5 << "btnAdjustRc_p2"
                                << QList<int>{174, 171} << "adjust_Rc_p2";
    QTest::newRow("Rt") << "btnStartURRAdjust" << 3 << "dspnAdjustRt" << 110.0 << "btnAdjustRt" << QList<int>{173, 171}
                        << "adjust_Rt_p";
    QTest::newRow("Ei and S ranges") << "btnEiSRangeCorrection" << 4 << "dspnEiMin" << -50.0 << "btnSaveEiSRanges"
                                     << QList<int>{176} << "ei_min";
    QTest::newRow("sensor") << "btnStartSensorParam" << 5 << "dspnSensorParamMax" << 13.0 << "btnSaveSensorParam"
                            << QList<int>{49, 142} << "sensor_range_max";
}

void TestPH77Widget::adjustments()
{
    QFETCH(QString, start);
    QFETCH(int, page);
    QFETCH(QString, spin);
    QFETCH(double, value);
    QFETCH(QString, button);
    QFETCH(QList<int>, written);
    QFETCH(QString, key);

    readConfiguration();
    auto* pages = child<QStackedWidget>("stackedWidgetAdjust");
    click(start);
    QCOMPARE(pages->currentIndex(), 1);
    child<QDoubleSpinBox>("dspnAdjustCode")->setValue(111);
    {
        ModalAnswerer ok({QMessageBox::Ok});
        click("btnCheckCode");
        QCOMPARE(ok.seen().size(), 1);
        QVERIFY2(ok.seen().first().startsWith("Adjustment|"), qPrintable(ok.seen().first()));
    }
    QCOMPARE(pages->currentIndex(), 1);

    child<QDoubleSpinBox>("dspnAdjustCode")->setValue(12345);
    click("btnCheckCode");
    QCOMPARE(pages->currentIndex(), page);
    child<QDoubleSpinBox>(spin)->setValue(value);
    m_line.sim.line().clearLog();
    click(button);
    QVERIFY(green());
    QCOMPARE(commands(), written);
    QCOMPARE(m_line.sim.param(0, key).toDouble(), value);

    QVERIFY(m_editor->completeAdjustParameter());
    QCOMPARE(pages->currentIndex(), 0);
    QVERIFY(!m_device->isMetrologyAccessOpen());
}

void TestPH77Widget::adjustmentWatch()
{
    openAccess("btnStartURRAdjust");
    click("btnAdjustInfo");
    QVERIFY(m_editor->isWatching());
    QVERIFY(!child<QPushButton>("btnAdjustRc_p1")->isEnabled());
    QVERIFY(!child<QWidget>("tabGraduation")->isEnabled());
    // U, Rc and Rt, each in its own unit: the simulator's variables 2, 7 and 5.
    auto* rc = child<QLabel>("lbRc");
    QTRY_VERIFY_WITH_TIMEOUT(!rc->text().isEmpty(), 3000);
    QVERIFY2(QRegularExpression("^\\d+\\.\\d{3} " + Device::getUnitCodeText(163, 0) + "$").match(rc->text()).hasMatch(),
             qPrintable(rc->text()));
    QVERIFY(child<QLabel>("lbU")->text().endsWith(" " + Device::getUnitCodeText(36, 0)));
    QVERIFY(child<QLabel>("lbRt")->text().endsWith(" " + Device::getUnitCodeText(37, 0)));

    // Completing ends the watch with the access.
    QVERIFY(m_editor->completeAdjustParameter());
    QVERIFY(!m_editor->isWatching());
    QVERIFY(!polled());
    QVERIFY(child<QWidget>("tabGraduation")->isEnabled());
}

QTEST_MAIN(TestPH77Widget)
#include "tst_ph77widget.moc"
