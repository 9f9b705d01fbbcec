// hartsim: a line of simulated HART field devices on a pseudo-terminal (or a
// tty), for trying the configurator without a modem and for its tests and
// benchmarks.

#include "scenario.h"
#include "simdevice.h"
#include "simline.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <csignal>
#include <cstdio>

#include <pthread.h>

using namespace hartsim;

namespace {

const char* const description =
    R"(A HART device simulator: a line of simulated field instruments, the HART slaves,
on a pseudo-terminal. The configurator (or any HART master) opens the slave end
of the pseudo-terminal as if it were the serial port of a HART modem, at 1200
baud, 8 data bits, odd parity, 1 stop bit, and talks to the devices on it.

The devices answer the universal and common-practice commands, and each model its
own commands. A request needs two preambles at least; a request with a wrong
checksum, or for an address where no device stands, gets no answer. A short frame
reaches the device at its polling address (0..63), a long frame the device with
that long address; the all-zero long address reaches, with commands 11, 21 and 73,
the device that the tag, long tag or pressed button names.

Once the line serves, the program prints one line "READY <path>" on standard
output, <path> being the pseudo-terminal's slave end (or the tty served), and runs
until SIGINT or SIGTERM; then it closes the line and removes the link.
Without --scenario, the built-in demo line is served.)";

QString modelsHelp()
{
    QString text = QStringLiteral("Models\n  %1 %2 %3 %4 %5\n")
                       .arg(QStringLiteral("model"), -9)
                       .arg(QStringLiteral("manufacturer"), -13)
                       .arg(QStringLiteral("device type"), -12)
                       .arg(QStringLiteral("HART rev."), -10)
                       .arg(QStringLiteral("long address (default device id)"));
    for (const QString& model : SimDevice::models()) {
        QString error;
        const std::unique_ptr<SimDevice> device = SimDevice::create(model, QVariantMap(), &error);
        if (!device) {
            text += QStringLiteral("  %1 (%2)\n").arg(model, error);
            continue;
        }
        text += QStringLiteral("  %1 0x%2%3 0x%4%5 %6 %7\n")
                    .arg(model, -9)
                    .arg(device->param(QStringLiteral("manufacturer_code")).toInt(), 2, 16, QLatin1Char('0'))
                    .arg(QString(), 9)
                    .arg(device->param(QStringLiteral("device_type_code")).toInt(), 2, 16, QLatin1Char('0'))
                    .arg(QString(), 8)
                    .arg(device->param(QStringLiteral("universal_cmd_version")).toInt(), -10)
                    .arg(QString::fromLatin1(device->longAddress().toHex(' ')));
    }
    return text;
}

const char* const modelNotes = R"(Device variables (commands 3, 9, 33, 54)
  generic, hart5  0 pressure kPa (PV), 1 temperature degC, 2 volume flow m3/h,
                  3 level %
  TCV-C, DX-C     0 temperature degC (PV), 1 measured resistance ohm, 2
                  thermocouple EMF mV, 3 free-ends temperature degC (NaN when
                  the input has no such quantity)
  QP-1C           0 pressure (PV, in input_units), 1 sensor temperature degC,
                  2 raw sensor pressure kPa
  pH-7702         0 pH (PV), 1 temperature degC, 2 input voltage U mV, 3 ORP
                  mV, 4 electrode EMF mV, 5 temperature sensor resistance Rt
                  ohm, 6 pH of the standard buffer recognised (NaN for none),
                  7 auxiliary electrode resistance Rc kOhm
  Values move on the simulator's clock: var_<n>_value plus var_<n>_amplitude
  times a sine of period var_<n>_period seconds; the models compute theirs
  from the simulated process (process_temperature, process_pressure,
  solution_ph, ...). The loop current follows the range (3.8 to 20.5 mA), is
  4 mA in multidrop (current_loop_mode 0) and fixed by command 40.

Metrology access (the models only)
  Command 190 with the 4-byte access code (parameter access_code, default
  12345) opens access and answers 1; the code 0 closes it and answers 0; a
  wrong code is refused with response code 16. Reset (42), power-up and ten
  minutes without a protected command close it too. With access closed these
  are refused with response code 16: 45, 46, 192 (factory settings: 1 save,
  0 restore), 194 (factory number = the 3-byte device id) and
  TCV-C/DX-C 171 172 173; QP-1C 136 137 138 140 141 147;
  pH-7702 142 172 173 174 176. A generic device has no access check (190 and
  194 answer 64, not implemented).

Behaviour
  Writes are echoed and raise the configuration-changed flag (each master has
  its own, reset by command 38 with the counter) and counter; write
  protection (command 129, or the parameter write_protection) refuses them
  with code 7 and is lifted only from the instrument's menu, not over the
  line. The cold-start bit goes once to each master after power-up or reset.
  "More status available" stands while the status of command 48 differs from
  what a master last sent back with command 48. self_test_ms makes the device
  busy (code 32) for that long after command 41.
  hartsim --params <model> lists every parameter of a model with its default.
)";

const char* const examples = R"(Examples
  hartsim --demo --link /tmp/hart0
      The demo line: TCV-C at 0, QP-1C at 1, pH-7702 at 2, a generic HART 7
      device at 3, with line timing. Point the configurator's port at /tmp/hart0.
  hartsim --scenario bench.json --timing fast --verbose
      The devices of bench.json, answering at once, every request and answer
      logged in hexadecimal on standard error.
  hartsim --tty /dev/ttyUSB0 --demo
      The demo line on a real serial port (1200 baud, 8 data bits, odd parity).

Exit status: 0 after SIGINT or SIGTERM, 1 when the line cannot be opened,
2 for a bad option or scenario.
)";

void printError(const QString& text)
{
    std::fprintf(stderr, "hartsim: %s\n", qPrintable(text));
    std::fflush(stderr);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("hartsim"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    const QCommandLineOption helpOption({QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("Shows this help: options, scenario format, models."));
    const QCommandLineOption scenarioOption(QStringLiteral("scenario"),
                                            QStringLiteral("Serves the devices of the scenario <file> (JSON, below)."),
                                            QStringLiteral("file"));
    const QCommandLineOption demoOption(QStringLiteral("demo"),
                                        QStringLiteral("Serves the built-in demo line (the default)."));
    const QCommandLineOption linkOption(QStringLiteral("link"),
                                        QStringLiteral("Makes a symbolic link <path> to the pseudo-terminal's slave "
                                                       "end (replacing an older link), removed at exit."),
                                        QStringLiteral("path"));
    const QCommandLineOption ttyOption(QStringLiteral("tty"),
                                       QStringLiteral("Serves the tty <device> instead of a pseudo-terminal."),
                                       QStringLiteral("device"));
    const QCommandLineOption timingOption(
        QStringLiteral("timing"),
        QStringLiteral("fast: answers at once; line: the times of a 1200-baud line. Overrides the scenario."),
        QStringLiteral("fast|line"));
    const QCommandLineOption turnaroundOption(
        QStringLiteral("turnaround"),
        QStringLiteral("Pause in ms between a request and its answer with line timing (default 20). Overrides "
                       "the scenario."),
        QStringLiteral("ms"));
    const QCommandLineOption verboseOption(
        QStringLiteral("verbose"), QStringLiteral("Logs every request, answer and dropped frame in hexadecimal on "
                                                  "standard error."));
    const QCommandLineOption paramsOption(
        QStringLiteral("params"), QStringLiteral("Lists every parameter of <model> with its default value, and exits."),
        QStringLiteral("model"));
    parser.addOptions({helpOption, scenarioOption, demoOption, linkOption, ttyOption, timingOption, turnaroundOption,
                       verboseOption, paramsOption});

    if (!parser.parse(QCoreApplication::arguments())) {
        printError(parser.errorText() + QStringLiteral(" (see --help)"));
        return 2;
    }
    if (parser.isSet(helpOption)) {
        const QString help = parser.helpText() + QLatin1Char('\n') + Scenario::formatHelp() + QLatin1Char('\n') +
                             modelsHelp() + QLatin1Char('\n') + QString::fromLatin1(modelNotes) + QLatin1Char('\n') +
                             QString::fromLatin1(examples);
        std::fputs(qPrintable(help), stdout);
        return 0;
    }
    if (parser.isSet(paramsOption)) {
        QString error;
        const std::unique_ptr<SimDevice> device = SimDevice::create(parser.value(paramsOption), QVariantMap(), &error);
        if (!device) {
            printError(error);
            return 2;
        }
        const QVariantMap params = device->params();
        for (auto it = params.constBegin(); it != params.constEnd(); ++it) {
            const QVariant& value = it.value();
            const QString text =
                value.typeId() == QMetaType::QString ? QLatin1Char('"') + value.toString() + '"' : value.toString();
            std::fprintf(stdout, "%-32s %s\n", qPrintable(it.key()), qPrintable(text));
        }
        return 0;
    }
    if (!parser.positionalArguments().isEmpty()) {
        printError(QStringLiteral("unexpected argument \"%1\" (see --help)").arg(parser.positionalArguments().first()));
        return 2;
    }
    if (parser.isSet(scenarioOption) && parser.isSet(demoOption)) {
        printError(QStringLiteral("--scenario and --demo exclude each other"));
        return 2;
    }
    if (parser.isSet(linkOption) && parser.isSet(ttyOption)) {
        printError(QStringLiteral("--link makes a link to a pseudo-terminal; it does not go with --tty"));
        return 2;
    }

    SimLine line;
    const QString scenarioPath =
        parser.isSet(scenarioOption) ? parser.value(scenarioOption) : QString::fromLatin1(Scenario::DemoPath);
    QString error;
    if (!Scenario::load(scenarioPath, line, &error)) {
        printError(error);
        return 2;
    }
    if (parser.isSet(timingOption)) {
        const QString timing = parser.value(timingOption);
        if (timing == QLatin1String("fast")) {
            line.setTiming(SimLine::Timing::Fast);
        } else if (timing == QLatin1String("line")) {
            line.setTiming(SimLine::Timing::Line);
        } else {
            printError(QStringLiteral("--timing must be fast or line, not \"%1\"").arg(timing));
            return 2;
        }
    }
    if (parser.isSet(turnaroundOption)) {
        bool ok = false;
        const int ms = parser.value(turnaroundOption).toInt(&ok);
        if (!ok || ms < 0 || ms > 10000) {
            printError(QStringLiteral("--turnaround must be a number of milliseconds, 0..10000"));
            return 2;
        }
        line.setTurnaroundMs(ms);
    }
    const bool verbose = parser.isSet(verboseOption);
    line.setLogger([verbose](SimLine::LogLevel level, const QString& text) {
        if (verbose || level == SimLine::LogLevel::Warning) {
            std::fprintf(stderr, "hartsim: %s\n", qPrintable(text));
            std::fflush(stderr);
        }
    });

    // The signals that end the program are taken by sigwait below; they are
    // blocked before the line's thread starts, so that it inherits the mask.
    // A shell starts background jobs with SIGINT ignored, and an ignored signal
    // never reaches sigwait: the two that stop the simulator get their default
    // back first. SIGHUP stays as inherited (ignored under nohup).
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    sigaddset(&stopSignals, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);

    QString path;
    if (parser.isSet(ttyOption)) {
        if (line.startTty(parser.value(ttyOption), &error))
            path = line.path();
    } else {
        path = line.startPty(parser.value(linkOption), &error);
    }
    if (path.isEmpty()) {
        printError(error);
        return 1;
    }
    std::fprintf(stdout, "READY %s\n", qPrintable(path));
    std::fflush(stdout);
    if (verbose) {
        QStringList devices;
        for (const int address : line.pollingAddresses())
            line.withDevice(address, [&](SimDevice& device) {
                devices << QStringLiteral("%1 %2 (tag %3)")
                               .arg(address)
                               .arg(device.model(), device.param(QStringLiteral("tag")).toString());
            });
        printError(QStringLiteral("serving %1%2: %3")
                       .arg(path, line.linkPath().isEmpty() ? QString() : QStringLiteral(" as ") + line.linkPath(),
                            devices.join(QLatin1String(", "))));
    }

    int signal = 0;
    sigwait(&stopSignals, &signal);
    line.stop();
    if (verbose)
        printError(QStringLiteral("stopped by signal %1").arg(signal));
    return 0;
}
