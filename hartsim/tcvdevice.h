#ifndef HARTSIM_TCVDEVICE_H
#define HARTSIM_TCVDEVICE_H

#include "simdevice.h"

namespace hartsim {

// Our temperature converter, models "TCV-C" and "DX-C" (one instrument in two
// housings). Identity: manufacturer code 0xE0, device type 0x91 ("TCV-C") or
// 0x92 ("DX-C"), vendor 0x00E0, device id 0x009101 or 0x009201, HART 7,
// access code 12345.
//
// The input takes one of three sensors ("input_signal_type"):
//  0 a resistance thermometer. The simulated sensor at the process
//    temperature "process_temperature" has the resistance
//    R = "sensor_r0_true" * (1 + alpha * T) (alpha of "sensor_type": Pt 0.00385,
//    Pt' 0.00391, Cu 0.00428, Cu' 0.00426, Ni 0.00617), and the leads add
//    "wire_resistance_true" on the 2/4-wire schema (the 3-wire schema cancels
//    them). The converter measures Rm and works T back from its own
//    "resistanceTS_0" and, on the 2/4-wire schema, "resistance_conn_wires":
//    T = (Rm - Rw - R0) / (R0 * alpha). A wrong R0 gives a wrong temperature.
//  1 a thermocouple of "sensor_type" 0..12 (A-1, A-2, A-3, B, E, J, K, L, M,
//    N, R, S, T), taken as linear with its mean sensitivity: the EMF is
//    s * (T - Tfree), Tfree being "free_ends_temperature". The converter
//    computes E / s, plus its own measure of the free ends when
//    "free_ends_compensation" is on.
//  2 the free-ends sensor alone: the temperature is the converter's own
//    measure of "free_ends_temperature".
// Each measuring channel has a simulated error ("adc_resistance_error" ohm,
// "adc_voltage_error" mV, "adc_temperature_error" degC) and a trim that
// commands 172, 171 and 173 set so that the channel reads the true value given.
//
// Device variables: 0 temperature degC (PV), 1 measured resistance ohm (NaN
// unless a resistance thermometer is selected), 2 thermocouple EMF mV (NaN
// unless a thermocouple is selected), 3 free-ends temperature degC (NaN with a
// resistance thermometer).
//
// Vendor commands: reads 130 (configuration, 22 bytes), 132, 150, 153, 155,
// 157, 160; writes 133, 134, 143, 144 (two-point correction: the converter
// works out "resistanceTS_0" and "resistance_conn_wires" from the resistances
// it measured at the two given temperatures), 151, 152, 154, 156, 158, 161;
// adjustments 171 (voltage), 172 (resistance), 173 (free-ends temperature);
// 174 reads the present value of a channel; 192 manufacturer settings.
// Response code 8 ("incorrect input signal type") refuses a correction or an
// adjustment of a channel the selected input doesn't use; 144 answers 6 when
// no first point was measured, when the two temperatures lie less than 1 degC
// apart, or when the points give no positive R0. The sensor limits of command
// 14 follow the input and the sensor chosen. "decimal_point_position" and
// "average_count" set the local indicator and the filter: the simulated
// values are noise-free, so they change no value read over HART.
class TcvDevice : public SimDevice
{
public:
    explicit TcvDevice(const QString& model);

    float variableValue(int code, double now) const override;

protected:
    Reply command(quint8 cmd, const QByteArray& data, Master master, double now) override;
    bool isWriteCommand(quint8 cmd) const override;
    bool isProtectedCommand(quint8 cmd) const override;
    bool isWarning(quint8 cmd, quint8 code) const override;
    QStringList factoryKeys() const override;

private:
    enum Channel { Resistance = 0, Voltage = 1, FreeEnds = 2 };

    bool channelInUse(int channel) const;
    // What the converter's channels read now, trims included.
    double measuredResistance(double now) const;
    double measuredVoltage(double now) const;
    double measuredFreeEnds(double now) const;
    // The temperature the converter works out, in degC.
    double temperature(double now) const;
    void updateSensorLimits();
};

} // namespace hartsim

#endif // HARTSIM_TCVDEVICE_H
