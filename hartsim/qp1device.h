#ifndef HARTSIM_QP1DEVICE_H
#define HARTSIM_QP1DEVICE_H

#include "simdevice.h"

namespace hartsim {

// Our pressure converter, model "QP-1C". Identity: manufacturer code 0xE0,
// device type 0x93, vendor 0x00E0, device id 0x009301, HART 7, access code
// 12345.
//
// The simulated sensor sees the true pressure P = "process_pressure" (kPa)
// at its own temperature T = "sensor_temperature" (degC) and reads
//   m0 = P (1 + span error) + zero error + nonlinearity P^2
//        + zero tempco (T - 20) + span tempco (T - 20) P
// ("sensor_span_error", "sensor_zero_error", "sensor_nonlinearity" 1/kPa,
// "sensor_zero_tempco" kPa/degC, "sensor_span_tempco" 1/degC), in kPa, then in
// the calibration unit "calibrate_unit_code". The converter then
//  1. corrects the temperature drift ("temper_correction_mode" 1: zero, 2:
//     zero and gain) once the four steps of command 141 are stored (P1 and P2
//     at T1, P1 and P2 at T2): the zero and the span are interpolated in T
//     between the two temperatures and the reading is brought back to T1;
//  2. maps the result through the linearization table when at least two of
//     its first "line_points_count" points are stored (command 138 stores the
//     corrected reading of the moment with the value it stands for);
//     piecewise linear, extended beyond the end points;
//  3. converts to "input_units", or, with 251 (free conversion), maps
//     [free_range_min, free_range_max] (calibration unit) linearly onto
//     [indicate_range_min, indicate_range_max];
//  4. adds the zero offset "var_0_offset" (command 43 zeroes the present
//     reading) and multiplies by "gain_factor" (command 142 makes the present
//     reading equal to the value given; a factor above 2 answers 9, below 0.5
//     answers 10, and at the zero nothing can be scaled: 9).
//
// Device variables: 0 pressure in "input_units" (PV), 1 sensor temperature
// degC, 2 sensor pressure m0 in kPa. QV is not used.
//
// Vendor commands: reads 132, 135 (configuration, 21 bytes), 139
// (temperature correction), 148 (a line point; code 8 for a point not in
// use), 149 (the corrected reading now, calibration unit); writes 133, 134,
// 136 (calibration unit: the stored pressures are converted), 137, 138 (code 8
// for a point beyond the count, stored all the same), 140, 141 (code 8 when
// the step held another temperature), 142, 145, 146, 147; 192 manufacturer
// settings. Commands 43 and 44 are the converter's own: 44 takes the units of
// the list of the instrument (251 and the pressure units) and converts the
// range and the zero offset.
class Qp1Device : public SimDevice
{
public:
    Qp1Device();

    float variableValue(int code, double now) const override;

protected:
    Reply command(quint8 cmd, const QByteArray& data, Master master, double now) override;
    bool isWriteCommand(quint8 cmd) const override;
    bool isProtectedCommand(quint8 cmd) const override;
    QStringList factoryKeys() const override;

private:
    // The stages of the measurement, see the class comment.
    double sensorKpa(double now) const;
    double sensorReading(double now) const;  // m0, calibration unit
    double corrected(double now) const;      // after the temperature correction
    double linearized(double reading) const; // through the table
    double beforeOffset(double now) const;   // in the PV unit, before zero and gain
    double sensorTemperature(double now) const;
    void convertStoredPressures(double factor);
};

} // namespace hartsim

#endif // HARTSIM_QP1DEVICE_H
