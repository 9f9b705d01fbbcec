#include "simdevicetestutil.h"

using namespace hartsim;
using namespace simtest;

namespace {

// A meter in a solution that stands still: pH 6.86 at 25 degC unless the
// settings say otherwise. The electrode is Ei 8 mV, S 57 mV/pH, pHi 7; the
// meter believes Ei 0 mV, S 59.16 mV/pH (426CA3D7), pHi 7.
const QStringList stillSolution{"solution_ph_amplitude"};

// A graduation request: type (0 one point, 1 two), point, buffer pH.
QByteArray grd(int type, int point, float value)
{
    return QByteArray(1, char(type)) + QByteArray(1, char(point)) + f32(value);
}

} // namespace

// The configuration, the one-point graduation, the adjustments and the input
// units are driven end to end by the program's tests of its pH-7702 model.
class TestPh77Device : public QObject
{
    Q_OBJECT

private slots:
    void commands_data()
    {
        exchangeColumns();
        const QVariantMap none;

        // The electrode in pH 6.86 at 25 degC: E = 8 - 57 * (6.86 - 7) = 15.98
        // mV, ORP 15.98 + 207 mV. The meter: pH = 7 + (0 - 15.98) / 59.16.
        row("33 pH", none, 33, hx("00"), 0, hx("00 3B") + f32(float(7.0 - 15.98 / 59.16)));
        row("33 ORP", none, 33, hx("03"), 0, hx("03 24") + f32(222.98f));
        row("33 Rt of a Pt100 at 25 degC", none, 33, hx("05"), 0, hx("05 25") + f32(109.625f));
        row("33 buffer: 6.73 lies 0.13 from 6.86", none, 33, hx("06"), 0, hx("06 3B") + f32(6.86f));
        row("33 no variable 8", none, 33, hx("08"), 2);
        // The error bits: Ei within -60..60 mV, S within 50..62 mV/pH.
        row("48 all well", none, 48, {}, 0, QByteArray(25, '\0'));
        row("48 Ei and S above", {{"ei_isopotential_point", 61.0}, {"steepness", 63.0}}, 48, {}, 0,
            hx("0C") + QByteArray(24, '\0'));
        // An ORP meter: the limits in mV.
        writeRow("131 ORP meter", none, 131, hx("02 00000000 426CA3D7"), 14,
                 hx("009401 24 44FA0000 C4FA0000 41200000"));
        row("131 mode 4", none, 131, hx("04 00000000 426CA3D7"), 2);
        row("135 too hot", none, 135, hx("00 43480000"), 3);
        row("173 on a failed sensor", {{"ts_fault", 1}}, 173, f32(109.625f), 6);
        row("151 point 2 without point 1", none, 151, grd(1, 2, 9.18f), 6);
        row("143 not ours", none, 143, {}, 64);
        row("151 write-protected", {{"write_protection", 1}}, 151, grd(0, 1, 6.86f), 7);
        // The metrology and the current trims need the access code.
        row("142 closed", none, 142, hx("3B 41400000 3F800000 3F000000"), 16);
        row("46 closed", none, 46, f32(20.0f), 16);
    }

    void commands() { checkExchange("pH-7702", stillSolution); }

    void twoPointGraduation()
    {
        auto device = make("pH-7702", {}, stillSolution);
        // Point 1, buffer 4.01 at 20 degC: S(20) = 57 * 293.15 / 298.15 =
        // 56.04411, E1 = 8 + 56.04411 * 2.99 = 175.5719 mV. Nothing computed yet.
        device->setParam("solution_ph", 4.01);
        device->setParam("solution_temperature", 20.0);
        QCOMPARE(run(*device, 151, grd(1, 1, 4.01f)).data.toHex(' '), hx("01 00000000 426CA3D7").toHex(' '));
        // Point 2, buffer 9.18 at 30 degC: S(30) = 57.95589, E2 = 8 - 57.95589
        // * 2.18 = -118.3439 mV. Both give back the electrode: Ei 8, S25 57.
        device->setParam("solution_ph", 9.18);
        device->setParam("solution_temperature", 30.0);
        const QByteArray reply = run(*device, 151, grd(1, 2, 9.18f)).data;
        QCOMPARE(reply.size(), 9);
        QCOMPARE(reply.at(0), '\x02');
        QVERIFY_NEAR(DataCodec::getFloat(reply, 1), 8.0, 1e-3);
        QVERIFY_NEAR(DataCodec::getFloat(reply, 5), 57.0, 1e-3);
        const QByteArray points = run(*device, 150).data;
        QCOMPARE(points.size(), 25);
        QCOMPARE(points.left(5) + points.mid(13, 4), hx("01 408051EC 4112E148")); // 4.01, 9.18
        QVERIFY_NEAR(DataCodec::getFloat(points, 5), 175.5719, 1e-3);
        QVERIFY_NEAR(DataCodec::getFloat(points, 17), -118.3439, 1e-3);
        QVERIFY_NEAR(DataCodec::getFloat(points, 21), 30.0, 1e-3);
        // Now the meter reads true at any pH and temperature.
        device->setParam("solution_ph", 11.5);
        device->setParam("solution_temperature", 45.0);
        QVERIFY_NEAR(pv(*device), 11.5, 1e-3);
        // With a second buffer named, the first of two points puts the
        // electrode into it.
        device->setParam("second_buffer_ph", 4.01);
        QCOMPARE(code(*device, 151, grd(1, 1, 11.5f)), 0);
        QCOMPARE(device->param("solution_ph").toFloat(), 4.01f);
    }
};

QTEST_APPLESS_MAIN(TestPh77Device)

#include "tst_ph77device.moc"
