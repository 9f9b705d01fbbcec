#include "columns.h"
#include "device.h"
#include "devicewidget.h"
#include "modalanswerer.h"
#include "pvwidget.h"
#include "statuswidget.h"
#include "unibaseinput.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
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
    return kind == "check"  ? static_cast<QWidget*>(new QCheckBox)
           : kind == "spin" ? static_cast<QWidget*>(new QSpinBox)
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
        addColumns<QString, QVariant, QString>({"kind", "value", "shown"});

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
    // The status panel: the device's status in its colour, and the verdict of a transaction.
    void statusColour_data()
    {
        addColumns<QByteArray, QString>({"code", "shown"});
        QTest::newRow("none") << QByteArray() << "<p style=\"color: green; font: bold;\"></p>";
        QTest::newRow("good") << QByteArray(2, 0) << "<p style=\"color: green; font: bold;\">00 00</p>";
        QTest::newRow("response code") << QByteArray("\x07\x00", 2) << "<p style=\"color: red; font: bold;\">07 00</p>";
        QTest::newRow("device status") << QByteArray("\x00\x40", 2) << "<p style=\"color: magenta;\">00 40</p>";
        QTest::newRow("both: device status") << QByteArray("\x05\x4a", 2) << "<p style=\"color: magenta;\">05 4A</p>";
    }

    void statusColour()
    {
        QFETCH(QByteArray, code);
        DeviceWidget owner;
        StatusWidget status(&owner);
        status.onAppendDeviceStatus(QString(), code);
        QTEST(status.statusText(), "shown");
    }

    void verdict_data()
    {
        // final: the argument of the final message
        addColumns<int, int, int>({"steps", "taken", "final"});
        addColumns<QString, bool, QStringList>({"error", "green", "boxes"});
        QTest::newRow("all steps") << 2 << 2 << 0 << "old error" << true << QStringList();
        QTest::newRow("steps given") << 3 << 0 << 3 << "" << true << QStringList();
        QTest::newRow("no step announced") << 0 << 0 << 0 << "" << true << QStringList();
        QTest::newRow("short, quiet device") << 2 << 1 << 0 << "" << false << QStringList();
        QTest::newRow("short, device error")
            << 2 << 1 << 0 << "No answer***timeout" << false << QStringList{"Reading|No answer\n*timeout"};
    }

    void verdict()
    {
        QFETCH(int, steps);
        QFETCH(int, taken);
        QFETCH(int, final);
        QFETCH(QString, error);
        QFETCH(bool, green);
        Device device;
        device.setErrorText(error);
        DeviceWidget owner(nullptr, &device);
        StatusWidget status(&owner);
        status.onDeviceChanged(&device);
        ModalAnswerer answerer;
        status.onInitProgressBar(QStringLiteral("Reading"), steps);
        status.onInitProgressBar(QStringLiteral("Second"), 99); // a running sequence keeps its own
        for (int i = 0; i < taken; ++i)
            status.onNextStep();
        status.onShowFinalMessage(final);
        QCOMPARE(status.errorText().contains("completed successfully"), green);
        QCOMPARE(status.errorText().contains("completed with errors"), !green);
        QTEST(answerer.seen(), "boxes");
        QVERIFY(!status.isBusy());
    }

    // The live values panel lists each status text once, prefixed with the code that brought it.
    void pvStatusLines_data()
    {
        // texts: one report after the other
        addColumns<QByteArray, QStringList, QString, bool>({"code", "texts", "shown", "configChanged"});
        QTest::newRow("good, no prefix") << QByteArray(2, 0) << QStringList{"all well"} << "all well" << false;
        QTest::newRow("prefixed, once each")
            << QByteArray("\x00\x40", 2) << QStringList{"Configuration changed\nCold start", "Cold start"}
            << "[00 40] Configuration changed\n[00 40] Cold start" << true;
        QTest::newRow("separator unprefixed") << QByteArray("\x07\x00", 2) << QStringList{"--- more ---\nProtected"}
                                              << "--- more ---\n[07 00] Protected" << false;
    }

    void pvStatusLines()
    {
        QFETCH(QByteArray, code);
        QFETCH(QStringList, texts);
        QFETCH(QString, shown);
        DeviceWidget owner;
        PVWidget panel(&owner, 4, true);
        panel.onUpdateButtons(true);
        for (const QString& text : texts)
            panel.appendDeviceStatus(text, code);
        QCOMPARE(panel.statusLines(), shown);
        QTEST(panel.findChild<QPushButton*>("btnResetConfigChanged")->isEnabled(), "configChanged");
        // A new transaction starts a new list.
        panel.onInitProgressBar(QStringLiteral("next"), 1);
        panel.appendDeviceStatus(texts.first(), code);
        QCOMPARE(panel.statusLines(), shown.section('\n', 0, texts.first().count('\n')));
    }
};

QTEST_MAIN(TestDeviceWidget)
#include "tst_devicewidget.moc"
