#include "application.h"

#include "appsettings.h"
#include "bt.h"
#include "debugqt.h"

#include <QDir>
#include <QFile>
#include <QTranslator>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

QTranslator* Application::current = nullptr;
Application::Translators Application::translators;
QString Application::currentLocale;

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{}

void Application::loadTranslations(const QString& dir)
{
    loadTranslations(QDir(dir));
}

void Application::loadTranslations(const QDir& dir)
{
    const QFileInfoList files =
        dir.entryInfoList(QStringList(QStringLiteral("*_*.qm")), QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo& file : files) {
        const QStringList parts = file.baseName().split(QLatin1Char('_'), Qt::KeepEmptyParts, Qt::CaseSensitive);
        const QString locale = parts.at(parts.size() - 2).toLower() + QLatin1Char('_') + parts.last().toUpper();
        auto* translator = new QTranslator(instance());
        if (translator->load(file.absoluteFilePath(), QString(), QString(), QString())) {
            translators.insert(locale, translator);
        } else {
            SDBG(LevelWarn) << "translation not loaded:" << file.absoluteFilePath();
        }
    }
}

QStringList Application::availableLanguages()
{
    return translators.keys();
}

QString Application::language()
{
    return currentLocale;
}

void Application::setLanguage(const QString& locale)
{
    if (current)
        removeTranslator(current);
    current = translators.value(locale, nullptr);
    if (current) {
        currentLocale = locale;
        installTranslator(current);
    }
}

void Application::loadCss()
{
    const QStringList candidates = {QStringLiteral("%1/css").arg(AppSettings::data_dir()),
                                    QStringLiteral("%1/css").arg(QDir::currentPath()), QStringLiteral(":/css")};
    for (const QString& path : candidates) {
        if (path.isEmpty() || !QDir(path).exists())
            continue;
        DBG(LevelInfo) << QStringLiteral("path='%1'").arg(path);
        setStyleSheet(readAllFiles(path, QStringList(QStringLiteral("*.css"))));
        return;
    }
}

QString Application::readAllFiles(const QString& path, const QStringList& filters)
{
    QString text;
    QDir dir(path);
    if (path.isEmpty() || !dir.exists()) {
        DBG(LevelWarn) << "no directory" << path;
        return text;
    }
    dir.setFilter(dir.filter() | QDir::Files | QDir::Readable);
    dir.setNameFilters(filters);
    dir.setSorting(QDir::Name);
    for (const QString& entry : dir.entryList()) {
        QFile file(path + QDir::separator() + entry);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        text += tr(file.readAll().constData());
    }
    return text;
}

void sig_handler(int signo)
{
    char text[128];
    snprintf(text, sizeof text, "signal %d('%s') catched", signo, strsignal(signo));
    SDBG(LevelWarn) << text;
    switch (signo) {
    case SIGSEGV: {
        BackTrace trace;
        trace.here(0);
        fputs("\n*** Segmentation fault ***\n", stderr);
        fputs(trace.printable().c_str(), stderr);
        fflush(stderr);
        exit(139);
    }
    case SIGHUP:
    case SIGINT:
    case SIGTERM:
        exit(0);
    default:
        return;
    }
}
