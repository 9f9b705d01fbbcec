#include "device.h"
#include "devicewidget.h"
#include "unibaseinput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QSpinBox>
#include <QtTest>

// A panel with its device set from outside.
class Panel : public DeviceWidget
{
public:
    using DeviceWidget::DeviceWidget;
    using DeviceWidget::setDevice;
};

namespace {

QWidget* makeField(const QString& kind)
{
    if (kind == QLatin1String("combo")) {
        auto* box = new QComboBox;
        DeviceWidget::loadComboBoxItems({"a", "b", "c"}, box);
        box->setCurrentIndex(1);
        return box;
    }
    if (kind == QLatin1String("double")) {
        auto* spin = new QDoubleSpinBox;
        spin->setValue(9);
        return spin;
    }
    if (kind == QLatin1String("check"))
        return new QCheckBox;
    return kind == "spin"   ? static_cast<QWidget*>(new QSpinBox)
           : kind == "uni"  ? new UniBaseInput
           : kind == "edit" ? static_cast<QWidget*>(new QLineEdit("old"))
                            : new QLabel("old");
}

// What the field shows, as text.
QString stateOf(QWidget* field)
{
    if (auto* box = qobject_cast<QComboBox*>(field))
        return QString::number(box->currentIndex());
    if (auto* spin = qobject_cast<QAbstractSpinBox*>(field))
        return spin->text();
    if (auto* edit = qobject_cast<QLineEdit*>(field))
        return edit->text();
    if (auto* label = qobject_cast<QLabel*>(field))
        return label->text();
    return qobject_cast<QCheckBox*>(field)->isChecked() ? "on" : "off";
}

} // namespace

class TestDeviceWidget : public QObject
{
    Q_OBJECT

private slots:
    void showsByFieldClass_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");

        QTest::newRow("combo row") << "combo" << QVariant(2) << "2";
        QTest::newRow("combo no such row") << "combo" << QVariant(9) << "-1";
        QTest::newRow("combo invalid keeps") << "combo" << QVariant() << "1";
        QTest::newRow("spin") << "spin" << QVariant(7) << "7";
        QTest::newRow("double float") << "double" << QVariant(1.5f) << "1.50";
        QTest::newRow("double text keeps") << "double" << QVariant("1.5") << "9.00";
        QTest::newRow("uni int") << "uni" << QVariant(-5) << "-5";
        QTest::newRow("uni uint") << "uni" << QVariant(4000000000u) << "4000000000";
        QTest::newRow("uni long") << "uni" << QVariant(qlonglong(1) << 40) << "1099511627776";
        QTest::newRow("uni float") << "uni" << QVariant(1.5f) << "1.500";
        QTest::newRow("uni bytes") << "uni" << QVariant(QByteArray("\x12\xab", 2)) << "0x12AB";
        QTest::newRow("edit bytes") << "edit" << QVariant(QByteArray("\x20\x91", 2)) << "0x2091";
        QTest::newRow("edit text") << "edit" << QVariant("TT-101") << "TT-101";
        QTest::newRow("edit int keeps") << "edit" << QVariant(3) << "old";
        QTest::newRow("label float") << "label" << QVariant(0.25) << "0.25";
        QTest::newRow("label int keeps") << "label" << QVariant(3) << "old";
        QTest::newRow("check int") << "check" << QVariant(2) << "on";
        QTest::newRow("check bool") << "check" << QVariant(false) << "off";
    }

    void showsByFieldClass()
    {
        QFETCH(QString, kind);
        QFETCH(QVariant, value);

        Device device;
        device.setDeviceInfo(QStringLiteral("v"), value);
        Panel panel;
        panel.setDevice(&device);
        QScopedPointer<QWidget> field(makeField(kind));
        panel.setFieldColorModified(field.data(), true);
        panel.showDeviceInfoInField(QStringLiteral("v"), field.data());
        QTEST(stateOf(field.data()), "shown");
        QVERIFY(!DeviceWidget::isFieldModified(field.data()));
        // Labels and check boxes show; they are not input fields.
        QCOMPARE(panel.inputField(QStringLiteral("v")) == field.data(), kind != "label" && kind != "check");
    }

    void bindsOnceAndPaints()
    {
        Device device;
        device.setDeviceInfo(QStringLiteral("tag"), QStringLiteral("A"));
        Panel panel;
        panel.setDevice(&device);
        QLineEdit field;
        QSignalSpy changed(&panel, &DeviceWidget::changed);

        panel.showDeviceInfoInField(QStringLiteral("tag"), nullptr);
        panel.showDeviceInfoInField(QStringLiteral("tag"), &field);
        panel.showDeviceInfoInField(QStringLiteral("tag"), &field);
        // The program's own writes into the field are no edit.
        QCOMPARE(changed.size(), 0);
        QVERIFY(!DeviceWidget::isFieldModified(&field));

        field.setText(QStringLiteral("B"));
        QVERIFY(DeviceWidget::isFieldModified(&field));
        QCOMPARE(changed.size(), 1); // one connection, however often shown

        // Typing back the old text leaves the field blue: no comparison.
        field.setText(QStringLiteral("A"));
        QVERIFY(DeviceWidget::isFieldModified(&field));
        panel.showDeviceInfoInField(QStringLiteral("tag"), &field);
        QVERIFY(!DeviceWidget::isFieldModified(&field));
    }

    void fieldUsedAndComboBoxItems()
    {
        Device device;
        Panel panel;
        panel.setDevice(&device);
        QSpinBox field;
        QLabel label;
        panel.setFieldUsed(&field, true, &label); // already enabled: nothing at all
        QVERIFY(!DeviceWidget::isFieldModified(&field));
        panel.setFieldUsed(&field, false, &label);
        QVERIFY(!field.isEnabled() && !label.isEnabled());
        panel.setFieldUsed(&field, true, &label);
        QVERIFY(field.isEnabled() && label.isEnabled());
        QVERIFY(DeviceWidget::isFieldModified(&field)); // back in use by choice: to be written

        QComboBox box;
        DeviceWidget::loadComboBoxItems({"x", "y", "z"}, &box);
        QCOMPARE(box.itemData(2).toInt(), 2);
        box.setCurrentIndex(2);
        QSignalSpy spy(&box, &QComboBox::currentIndexChanged);
        DeviceWidget::loadComboBoxItems({"p", "q"}, &box); // the old row is beyond the new list
        QCOMPARE(box.currentIndex(), 0);
        DeviceWidget::loadComboBoxItemsWithItemData({QVariantMap{{"name", "mA"}, {"id", 39}}}, &box);
        QCOMPARE(box.itemData(0).toInt(), 39);
        QCOMPARE(spy.size(), 0);
    }

    void transactionSharedByChildren()
    {
        Panel editor;
        Panel first(&editor);
        Panel second(&editor);
        editor.setChildWidget(&first, QStringLiteral("first"));
        editor.setChildWidget(&second, QStringLiteral("second"));
        QSignalSpy started(&editor, &DeviceWidget::init_progress_bar);

        QVERIFY(first.initProgressBar(QStringLiteral("one"), 1));
        QVERIFY(second.isActiveTransaction());
        QVERIFY(!second.initProgressBar(QStringLiteral("two"), 1));
        QVERIFY(!editor.initProgressBar(QStringLiteral("three"), 1));
        QCOMPARE(started.size(), 1); // relayed from the child
        first.showFinalMessage(0);   // no device: the flag alone is cleared
        QVERIFY(!editor.isActiveTransaction());
        QVERIFY(second.initProgressBar(QStringLiteral("two"), 1));
    }
};

QTEST_MAIN(TestDeviceWidget)
#include "tst_devicewidget.moc"
