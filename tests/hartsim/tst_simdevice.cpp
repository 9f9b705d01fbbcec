#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A generic device whose variables stand still: PV 42 kPa (10.72 mA in its
// range 0 to 100 kPa), SV 23.5 degC, TV 12 m3/h, QV 50 %.
const QStringList stillVariables{"var_0_amplitude", "var_1_amplitude", "var_2_amplitude", "var_3_amplitude"};

std::unique_ptr<SimDevice> still(const QVariantMap& settings = {})
{
    return make("generic", settings, stillVariables);
}

} // namespace

// The identities and commands of the generic device that the program's tests
// read and write end to end are left to them.
class TestSimDevice : public QObject
{
    Q_OBJECT

private slots:
    void commands_data()
    {
        exchangeColumns();
        const QVariantMap none;
        const QVariantMap multidrop{{"polling_address", 4}, {"current_loop_mode", 0}};

        // Multidrop holds 4 mA; 42 kPa in 0..20 kPa saturates at 20.5 mA.
        row("2: in the range", none, 2, {}, 0, f32(10.72f) + f32(42.0f));
        row("2: multidrop holds 4 mA", multidrop, 2, {}, 0, f32(4.0f) + f32(0.0f));
        row("2: saturated above 20.5 mA", {{"range_max", 20.0}}, 2, {}, 0, f32(20.5f) + f32(103.125f));
        // Code 246 stands for the PV's variable; the time stamp of clock 0 is 0.
        row("9: PV code and variable 1", none, 9, hx("F6 01"), 0,
            hx("00 F6 41 0C") + f32(42.0f) + hx("C0 01 40 20") + f32(23.5f) + hx("C0 00000000"));
        row("HART 5: 15 without channel flags", {{"model", "hart5"}}, 15, {}, 0,
            hx("00 00 0C") + f32(100.0f) + f32(0.0f) + f32(0.5f) + hx("00 00"));
        row("no access code on a generic device", none, 190, hx("00003039"), 64);
        writeRow("6: address and loop mode", none, 6, hx("07 00"), 7, hx("07 00"));
        writeRow("35: span below the minimum is a warning", none, 35, hx("0C") + f32(10.5f) + f32(10.0f), 15,
                 hx("00 00 0C") + f32(10.5f) + f32(10.0f) + f32(0.5f) + hx("00 00 01"), 14);
        row("34: damping above 60 s", none, 34, f32(61.0f), 3);
        row("35: other unit", none, 35, hx("07") + f32(100.0f) + f32(0.0f), 18);
        row("35: no span", none, 35, hx("0C") + f32(10.0f) + f32(10.0f), 29);
        row("38: counter mismatch", none, 38, hx("0005"), 9);
        // Trimming needs the output fixed at the point trimmed, and a loop current.
        row("45: output not fixed", none, 45, f32(4.01f), 9);
        row("40: multidrop", multidrop, 40, f32(4.0f), 11);
    }

    void commands() { checkExchange("generic", stillVariables); }

    void processValuesMove()
    {
        // PV 42 kPa swinging by 2 kPa over 60 s; the time stamp of command 9
        // counts 1/32 ms from midnight of the clock.
        auto device = make("generic", {}, {});
        QVERIFY_NEAR(pv(*device, 15.0), 44.0, 1e-4);
        QVERIFY_NEAR(pv(*device, 45.0), 40.0, 1e-4);
        QCOMPARE(run(*device, 9, hx("00"), 86401.0).data.right(4), hx("00007D00"));
    }

    void configurationChangedAndColdStartPerMaster()
    {
        auto device = still();
        // The cold start is told once to each master, and again after a reset.
        QCOMPARE(status(*device, 0x20), 0x20);
        QCOMPARE(status(*device, 0x20), 0);
        QCOMPARE(status(*device, 0x60, Master::Secondary), 0x20);
        QCOMPARE(code(*device, 19, hx("000001")), 0);
        QCOMPARE(status(*device, 0x60), 0x40);
        QCOMPARE(status(*device, 0x60, Master::Secondary), 0x40);

        // The primary master resets its flag with the counter it knows; a
        // reset is not itself a change.
        QCOMPARE(run(*device, 38, hx("0001")).data, hx("0001"));
        QCOMPARE(status(*device, 0x40), 0);
        QCOMPARE(status(*device, 0x40, Master::Secondary), 0x40);
        QCOMPARE(device->param("modify_count").toInt(), 1);
        QCOMPARE(code(*device, 42), 0);
        QCOMPARE(status(*device, 0x20), 0x20);
    }

    void writeProtection()
    {
        auto device = still();
        QCOMPARE(code(*device, 129, hx("01")), 0);
        QCOMPARE(code(*device, 34, f32(1.0f)), 7);
        // Lifting it over the line is refused; reading still works.
        QCOMPARE(code(*device, 129, hx("00")), 7);
        QCOMPARE(run(*device, 15).data.at(15), '\x01');
        QCOMPARE(device->param("modify_count").toInt(), 1);
        device->clearWriteProtectionFromMenu();
        QCOMPARE(code(*device, 34, f32(1.0f)), 0);
    }

    void additionalStatus()
    {
        // Bytes sent back other than those read answer the present status and
        // clear nothing; the bytes read clear.
        auto device = still({{"error_code", 5}});
        const QByteArray read = run(*device, 48).data;
        QCOMPARE(read, hx("05") + QByteArray(24, '\0'));
        QCOMPARE(run(*device, 48, QByteArray(9, '\0')).data, read);
        QCOMPARE(status(*device, 0x10), 0x10);
        QCOMPARE(run(*device, 48, read).data, read);
        QCOMPARE(status(*device, 0x10), 0);
    }

    void fixedCurrent()
    {
        auto device = still();
        QCOMPARE(run(*device, 40, f32(4.0f)).data, f32(4.0f));
        QCOMPARE(status(*device, 0x08), 0x08);
        QCOMPARE(run(*device, 2).data, f32(4.0f) + f32(0.0f));
        // 0 leaves the fixed mode.
        QCOMPARE(run(*device, 40, f32(0.0f)).data, f32(0.0f));
        QCOMPARE(status(*device, 0x08), 0);
    }

    void busyAfterSelfTest()
    {
        auto device = still({{"self_test_ms", 500}});
        QCOMPARE(code(*device, 41, QByteArray(), 10.0), 0);
        QCOMPARE(code(*device, 1, QByteArray(), 10.4), 32);
        QCOMPARE(code(*device, 1, QByteArray(), 10.6), 0);
    }
};

QTEST_GUILESS_MAIN(TestSimDevice)
#include "tst_simdevice.moc"
