#ifndef HARTSIM_PH77DEVICE_H
#define HARTSIM_PH77DEVICE_H

#include "simdevice.h"

namespace hartsim {

// Our pH meter, model "pH-7702". Identity: manufacturer code 0xE0, device
// type 0x94, vendor 0x00E0, device id 0x009401, HART 7, access code 12345.
//
// The simulated electrode stands in a solution of pH "solution_ph" at
// "solution_temperature" (degC) and gives the EMF
//   E = Ei - S(T) (pH - pHi),  S(T) = S25 (T + 273.15) / 298.15
// with its true "electrode_ei" (mV), "electrode_s25" (mV/pH) and
// "electrode_phi". The meter's U channel reads E (1 + "adc_u_gain_error") +
// "adc_u_error"; its two-point adjustment (command 172) maps that onto the
// EMF it works with. The temperature comes from the sensor resistance
// Rt = "ts_r0_true" (1 + alpha T) (alpha 0.00385 for "ts_type" 0, 0.00391 for
// 1), read by the Rt channel with "adc_rt_error" and the trim of command 173,
// and worked back with the meter's own "ts_0", plus "t_for_correction"; or it
// is "t_manual" ("t_measurement_mode" 1, and also when the sensor fails).
// "ts_fault" 1 shorts the sensor, 2 disconnects it. The pH is then
//   pH = pHi + (Ei - E) / (S (T + 273.15) / 298.15)
// with the meter's own "ei_isopotential_point", "steepness" (at 25 degC) and
// "phi_isopotential_point".
//
// Device variables:
//  0 pH (unit 59), the PV for "input_units" 0 and 1
//  1 temperature degC (32), NaN when the sensor fails in measured mode
//  2 input voltage U mV (36), the U channel before its adjustment
//  3 ORP mV (36): EMF + "reference_potential", the PV for "input_units" 2
//  4 electrode EMF mV (36), the U channel adjusted, the PV for "input_units" 3
//  5 Rt ohm (37), the temperature sensor's resistance (0 shorted, NaN open)
//  6 pH of the standard buffer (1.65, 4.01, 6.86, 9.18, 12.43) within 0.3 pH
//    of the present pH (59), NaN when there is none.
//  7 Rc kOhm (163), the auxiliary electrode's resistance ("electrode_rc_true")
//    as the Rc channel reads it ("adc_rc_error"), after its adjustment.
// The metrology page watches 2, 7 and 5: U, Rc and Rt, each as its channel
// gives it; 4 is the EMF the graduation records.
//
// Graduation (command 151, not echoed): the meter records the EMF and the
// temperature of the point; one-point works Ei out with the present S;
// two-point, at point 2, works S (normalised to 25 degC) and Ei out of both
// points. Command 48 byte 0 carries 0x01 sensor short circuit, 0x02 sensor not
// connected, 0x04 Ei outside [ei_min, ei_max], 0x08 S outside [s_min, s_max].
//
// Command 151 answers 6 for a second point without a first, for two points
// that fix no steepness, or for a steepness that comes out not positive; 173
// answers 6 while the sensor fails. "input_units" (command 131) chooses the
// PV: 0 and 1 the pH, 2 the ORP, 3 the EMF; between pH and millivolts the
// range and the sensor limits change with it. Averaging and filter settings
// are kept and reported; the simulated values are noise-free.
//
// Vendor commands: reads 130, 134 (20 bytes each), 140, 150, 152, 171; writes
// 131, 132, 133, 135, 136, 137, 141, 142 (sensor), 151; adjustments 172 (U),
// 173 (Rt), 174 (Rc, the auxiliary electrode's resistance channel), 176 (Ei
// and S ranges); 192 manufacturer settings.
class Ph77Device : public SimDevice
{
public:
    Ph77Device();

    float variableValue(int code, double now) const override;

protected:
    Reply command(quint8 cmd, const QByteArray& data, Master master, double now) override;
    bool isWriteCommand(quint8 cmd) const override;
    bool isProtectedCommand(quint8 cmd) const override;
    QByteArray deviceSpecificStatus() const override;
    QStringList factoryKeys() const override;

private:
    double wave(const char* key, double now) const;
    double inputVoltage(double now) const; // U channel, before adjustment
    double emf(double now) const;          // U channel, adjusted
    double rt(double now) const;           // Rt channel, trimmed
    double rawRc() const;                  // Rc channel, before adjustment
    double rc(double now) const;           // Rc channel, adjusted
    // A channel's reading through its two-point adjustment ("U" or "Rc").
    double adjusted(const char* channel, double raw) const;
    double measuredTemperature(double now) const;
    double compensationTemperature(double now) const;
    double ph(double now) const;
    int errorBits() const;
    void applyInputUnits(int mode);
};

} // namespace hartsim

#endif // HARTSIM_PH77DEVICE_H
