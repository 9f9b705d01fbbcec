#ifndef HARTSIM_SCENARIO_H
#define HARTSIM_SCENARIO_H

#include "simdevice.h"
#include "simline.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

// Scenario files
// ==============
// A scenario is one JSON object that says what stands on a simulated line:
//
// {
//     "description": "free text, ignored",
//     "timing": "line",
//     "turnaround_ms": 20,
//     "devices": [
//         {
//             "model": "TCV-C",
//             "polling_address": 0,
//             "tag": "TT-101",
//             "faults": [ { "kind": "split", "command": 3, "count": 1, "at": 5, "pause_ms": 30 } ]
//         }
//     ]
// }
//
// Top-level keys:
//   "description"    string, optional: a note for the reader.
//   "timing"         "fast" or "line", optional (default "fast"). "fast" answers
//                    at once; "line" keeps the times of a 1200-baud line (11 bits
//                    a character, about 9.17 ms a byte): the request's own time
//                    on the wire, the turnaround, then the answer byte by byte.
//   "turnaround_ms"  integer 0..10000, optional (default 20): the pause between
//                    the end of a request and the start of its answer, "line"
//                    timing only.
//   "devices"        array, required: one object for each device.
//
// Device keys:
//   "model"            string, required: one of SimDevice::models() ("generic",
//                      "hart5", "TCV-C", "DX-C", "QP-1C", "pH-7702").
//   "polling_address"  integer 0..63, required, unique on the line.
//   "faults"           array of fault objects, optional.
//   any other key      a device parameter, passed to SimDevice::create, which
//                      refuses keys it does not know and values of the wrong type
//                      ("tag", "long_tag", "descriptor", "message", "date",
//                      "device_id", "range_max", "write_protection"...).
//
// Fault keys (the fault acts on the answers of the device it is listed under):
//   "kind"       string, required: the kind, below.
//   "command"    integer 0..255, optional: only answers to this command
//                (default: every command).
//   "count"      integer >= 0, optional: how many answers it spoils, 0 (the
//                default) for all of them.
//   Kinds, with the keys each one takes besides these:
//   "no_answer"      the device does not see the request and sends nothing.
//   "bad_checksum"   the checksum byte of the answer is inverted.
//   "noise"          "noise": hexadecimal string ("00 3A 7E"), required: these
//                    bytes go out before the preambles.
//   "split"          "at": integer >= 1, "pause_ms": integer >= 0, both
//                    required: the answer goes out in two, the second part from
//                    byte "at" on (counting every byte sent), "pause_ms" later.
//   "delay"          "delay_ms": integer >= 0, required: the answer starts that
//                    much later.
//   "wrong_address"  the lowest bit of the last address byte of the answer is
//                    flipped: the answer seems to come from another device.
//   "burst"          bit 6 of the first address byte (the burst bit) is set.
//   "response_code"  "code": integer 0..255, required; "keep_data": boolean,
//                    optional (default false): the answer carries this response
//                    code, and its data only with "keep_data".
//   "preambles"      "preambles": integer 0..255, required: the answer has this
//                    many preambles instead of the device's.
//   "wrong_command"  the answer carries the command number plus one.
//   "truncate"       "length": integer >= 0, required: the answer is cut to its
//                    first "length" bytes (preambles included).
//
// Any other key, a value of the wrong type or out of range, an unknown model or
// fault kind, two devices at one polling address, a missing file or a JSON
// syntax error (reported with its line) is an error, and nothing is loaded.

namespace hartsim {

// A scenario read from a file: the devices with their faults and the line's
// timing, ready to be put on a SimLine.
class Scenario
{
public:
    // The demo line built into the program.
    static const char* const DemoPath;

    Scenario();
    ~Scenario();
    Scenario(Scenario&&) noexcept;
    Scenario& operator=(Scenario&&) noexcept;

    // Reads a scenario file (a resource path like DemoPath works too). On an
    // error the scenario stays empty and the error text names the file.
    bool loadFile(const QString& path, QString* error);
    // The same from JSON text; source names it in error texts.
    bool loadJson(const QByteArray& json, const QString& source, QString* error);

    bool hasTiming() const { return m_hasTiming; }
    SimLine::Timing timing() const { return m_timing; }
    bool hasTurnaround() const { return m_hasTurnaround; }
    int turnaroundMs() const { return m_turnaroundMs; }
    QString description() const { return m_description; }
    // The polling addresses of the devices, in the order of the file.
    QList<int> pollingAddresses() const;
    // The faults, each with the polling address of its device.
    QList<Fault> faults() const { return m_faults; }

    // Moves the devices and faults onto the line and sets its timing and
    // turnaround where the scenario gives them. Refused, with nothing changed,
    // when the line already has a device at one of the polling addresses.
    bool apply(SimLine& line, QString* error);

    // loadFile, then apply.
    static bool load(const QString& path, SimLine& line, QString* error);

    // The format as told above, for the program's help.
    static QString formatHelp();

private:
    void clear();

    std::vector<std::unique_ptr<SimDevice>> m_devices;
    QList<Fault> m_faults;
    bool m_hasTiming = false;
    SimLine::Timing m_timing = SimLine::Timing::Fast;
    bool m_hasTurnaround = false;
    int m_turnaroundMs = 20;
    QString m_description;
};

} // namespace hartsim

#endif // HARTSIM_SCENARIO_H
