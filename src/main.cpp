#include "application.h"
#include "appsettings.h"
#include "debugqt.h"
#include "mainwindow.h"

#include <QIcon>
#include <QScreen>

#include <csignal>

int main(int argc, char* argv[])
{
    DebugQt::instance(0x8ED0007, nullptr)->set_emitting(true);

    signal(SIGTERM, sig_handler);
    signal(SIGHUP, sig_handler);
    signal(SIGSEGV, sig_handler);

    AppSettings::instance()->load();

    Application app(argc, argv);
    Application::loadTranslations(QStringLiteral(":/lang"));
    Application::setWindowIcon(QIcon(QStringLiteral(":/ico/calvane.png")));

    // The window applies the settings' language and log levels itself.
    MainWindow window;

    if (AppSettings::instance()->bApplyCss)
        app.loadCss();

    // Centred in the available area, measured from the screen's origin.
    const QRect available = window.screen()->availableGeometry();
    window.move((available.width() - window.width()) / 2, (available.height() - window.height()) / 2);

    window.show();
    return app.exec();
}
