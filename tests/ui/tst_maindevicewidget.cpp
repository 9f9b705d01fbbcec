#include "defaultdevicewidget.h"
#include "editorfixture.h"

#include <QSpinBox>

// An editor with four configuration fields of three write functions: damping
// (34), the range's edges (both 35) and the preambles (59).
class Editor : public DefaultDeviceWidget
{
public:
    Editor()
    {
        const QList<QPair<QString, QWidget*>> fields = {{"damping_time", &damping},
                                                        {"range_max", &rangeMax},
                                                        {"range_min", &rangeMin},
                                                        {"preambles_count", &preambles}};
        const QList<int> functions = {34, 35, 35, 59};
        for (int i = 0; i < fields.size(); ++i) {
            m_mapWriteTagWidget.insert(fields.at(i).first, fields.at(i).second);
            m_mapTagFunction.insert(fields.at(i).first, functions.at(i));
        }
        for (QDoubleSpinBox* spin : {&damping, &rangeMax, &rangeMin})
            spin->setRange(-1000, 1000);
        preambles.setRange(5, 20);
    }
    void showAll()
    {
        for (auto it = m_mapWriteTagWidget.cbegin(); it != m_mapWriteTagWidget.cend(); ++it)
            showDeviceInfoInField(it.key(), it.value());
    }
    QWidget* field(const QString& name) const { return m_mapWriteTagWidget.value(name); }

    QDoubleSpinBox damping, rangeMax, rangeMin;
    QSpinBox preambles;
};

class TestMainDeviceWidget : public QObject, public EditorFixture<Editor>
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(startLine({{"generic", {{"polling_address", 0}}}}));
        device = line.addDevice(0, QStringLiteral("General"));
        QVERIFY(device->readDevice(0) && device->readDevice(15) && device->readDevice(0));
        device->setDeviceInfo("preambles_count", 5);
    }
    void cleanup() { editor.reset(); }

    void writeList_data()
    {
        QTest::addColumn<QStringList>("edited");
        QTest::addColumn<QString>("disabled");
        QTest::addColumn<int>("lost"); // a write the device does not answer, once
        QTest::addColumn<QList<int>>("list");
        QTest::addColumn<QStringList>("blueAfter");

        QTest::newRow("range last, whatever the numbers") << QStringList{"range_max", "preambles_count", "damping_time"}
                                                          << QString() << -1 << QList<int>{34, 59, 35} << QStringList();
        QTest::newRow("two fields of one write")
            << QStringList{"range_max", "range_min"} << "" << -1 << QList<int>{35} << QStringList();
        QTest::newRow("a failure in the middle")
            << QStringList{"range_max", "preambles_count", "damping_time"} << "" << 59 << QList<int>{34, 59, 35}
            << QStringList{"preambles_count", "range_max"};
        QTest::newRow("a disabled blue field")
            << QStringList{"range_min"} << "range_min" << -1 << QList<int>{35} << QStringList();
    }

    void writeList()
    {
        QFETCH(QStringList, edited);
        QFETCH(QString, disabled);
        QFETCH(int, lost);
        QFETCH(QList<int>, list);
        QFETCH(QStringList, blueAfter);

        editor.reset(new Editor);
        editor->setItem(device);
        editor->showAll();
        const float rangeMin = device->getDeviceInfoFloat("range_min");
        for (const QString& name : edited) {
            if (auto* spin = qobject_cast<QDoubleSpinBox*>(editor->field(name)))
                spin->setValue(spin->value() + 1);
            else if (auto* count = qobject_cast<QSpinBox*>(editor->field(name)))
                count->setValue(count->value() < 20 ? count->value() + 1 : 5);
        }
        if (!disabled.isEmpty())
            editor->field(disabled)->setEnabled(false);
        if (lost >= 0) {
            hartsim::Fault fault;
            fault.command = lost;
            fault.count = 1;
            line.sim.addFault(0, fault);
        }
        clearLog();
        {
            ModalAnswerer yes({QMessageBox::Yes, QMessageBox::Ok}); // the question, and a failure's box
            const QList<int> functions = editor->getWriteFunctionsList();
            QCOMPARE(functions, list);
            editor->execWriteFunctionsByList(functions, false);
        }

        QCOMPARE(commands(), lost >= 0 ? list.mid(0, list.indexOf(lost) + 1) : list);
        QStringList blue = editor->writeParameters().values();
        blue.sort();
        std::sort(blueAfter.begin(), blueAfter.end());
        QCOMPARE(blue, blueAfter);
        for (const QString& name : blueAfter)
            QVERIFY(DeviceWidget::isFieldModified(editor->field(name)));
        if (!disabled.isEmpty()) // written with the value the device held
            QCOMPARE(line.sim.param(0, "range_min").toFloat(), rangeMin);
        if (blueAfter.isEmpty())
            return;
        // A second press writes exactly what is still blue.
        clearLog();
        ModalAnswerer yes({QMessageBox::Yes});
        const QList<int> again = editor->getWriteFunctionsList();
        QCOMPARE(again, (QList<int>{59, 35}));
        editor->execWriteFunctionsByList(again, false);
        QVERIFY(editor->writeParameters().isEmpty());
    }
};

QTEST_MAIN(TestMainDeviceWidget)
#include "tst_maindevicewidget.moc"
