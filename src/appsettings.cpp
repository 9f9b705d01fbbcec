#include "appsettings.h"

#include "debugqt.h"
#include "qjsonsettings.h"

#include <QDir>
#include <QFile>

QString AppSettings::g_data_dir;
QString AppSettings::g_cfg_dir;
QString AppSettings::g_log_dir;
QString AppSettings::g_arch_dir;
QString AppSettings::g_templates_dir;
QString AppSettings::g_css_dir;
QString AppSettings::g_tests_dir;
QString AppSettings::g_startup_cfg_bn = QStringLiteral("startup.cfg");
QString AppSettings::g_default_config_bn = QStringLiteral("calvane.cfg");
QString AppSettings::g_default_log_bn = QStringLiteral("calvane.log");
QString AppSettings::g_startup_cfg_fn;
QString AppSettings::g_default_config_fn;
QString AppSettings::g_log_fn;
QString AppSettings::g_embedded_config_fn = QStringLiteral(":cfg/calvane.cfg");
QString AppSettings::g_embedded_templates_dir = QStringLiteral(":/templates");
QString AppSettings::g_template_ext = QStringLiteral("tpl");
QString AppSettings::g_time_format = QStringLiteral("HH:mm:ss.zzz");
QString AppSettings::g_cfg_fn;

namespace {

const QString keyPointer = QStringLiteral("cfg_filename");

QString inDir(const QString& dir, const QString& name)
{
    return dir + QDir::separator() + name;
}

const QString& ensureDir(const QString& dir)
{
    if (!QDir(dir).exists())
        QDir().mkpath(dir);
    return dir;
}

void writePointer(const QString& fileName)
{
    QJsonSettings pointer(AppSettings::startup_cfg_fn());
    pointer.setValue(keyPointer, fileName);
    pointer.sync();
    if (pointer.status() == QSettings::AccessError)
        SDBG(LevelErr) << "cannot write" << AppSettings::startup_cfg_fn();
}

} // namespace

QString AppSettings::tagViewModeToString(TagViewMode mode)
{
    return mode == TagViewModeCompact ? QStringLiteral("compact") : QStringLiteral("full");
}

AppSettings::TagViewMode AppSettings::tagViewModeFromString(const QString& text)
{
    return text == QLatin1String("compact") ? TagViewModeCompact : TagViewModeFull;
}

AppSettings::AppSettings()
{
    // Settings live in the working directory of the process, not in a
    // per-user location: a data folder is a complete installation of its own.
    g_data_dir = QDir(QStringLiteral("./")).absolutePath();
    g_cfg_dir = inDir(g_data_dir, QStringLiteral("cfg"));
    g_log_dir = inDir(g_data_dir, QStringLiteral("log"));
    g_arch_dir = inDir(g_data_dir, QStringLiteral("archives"));
    g_templates_dir = inDir(g_data_dir, QStringLiteral("templates"));
    g_css_dir = inDir(g_data_dir, QStringLiteral("css"));
    g_tests_dir = inDir(g_data_dir, QStringLiteral("tests"));
    g_startup_cfg_fn = inDir(g_cfg_dir, g_startup_cfg_bn);
    g_default_config_fn = inDir(g_cfg_dir, g_default_config_bn);
    g_log_fn = inDir(g_log_dir, g_default_log_bn);
}

AppSettings* AppSettings::instance()
{
    static AppSettings* settings = new AppSettings;
    return settings;
}

const QString& AppSettings::templates_dir()
{
    return ensureDir(g_templates_dir);
}

const QString& AppSettings::tests_dir()
{
    return ensureDir(g_tests_dir);
}

const QString& AppSettings::archives_dir()
{
    return ensureDir(g_arch_dir);
}

bool AppSettings::load()
{
    if (!QFile::exists(g_startup_cfg_fn))
        createDefaultConfig();

    QString name = QJsonSettings(g_startup_cfg_fn).value(keyPointer).toString();
    if (name.isEmpty()) {
        SDBG(LevelWarn) << g_startup_cfg_fn << "names no configuration file, using" << g_default_config_fn;
        name = g_default_config_fn;
    }
    if (!QDir::isAbsolutePath(name))
        name = inDir(g_cfg_dir, name);
    // A named file that is gone is not replaced: this start runs on defaults
    // and the first save writes the file again where it was.
    if (!QFile::exists(name)) {
        SDBG(LevelWarn) << "configuration file" << name << "not found, running on defaults";
        createDefaultConfig();
    }
    loadConfig(name);
    return true;
}

void AppSettings::createDefaultConfig()
{
    ensureDir(g_cfg_dir);
    if (!QFile::exists(g_default_config_fn)) {
        if (QFile::copy(g_embedded_config_fn, g_default_config_fn))
            QFile::setPermissions(g_default_config_fn, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                                           QFile::WriteGroup | QFile::ReadOther);
        else
            SDBG(LevelWarn) << "no default configuration written to" << g_default_config_fn;
    }
    writePointer(g_default_config_fn);
}

bool AppSettings::loadConfig(const QString& fileName)
{
    const QString name = fileName.isEmpty() || QDir::isAbsolutePath(fileName) ? fileName : inDir(g_cfg_dir, fileName);
    QJsonSettings settings(name);
    serverData = settings.value(QStringLiteral("srv")).toMap();
    const QVariantMap app = settings.value(QStringLiteral("app")).toMap();

    log_file_enabled = app.value(QStringLiteral("log_file_enabled")).toBool();
    log_flags = app.value(QStringLiteral("log_flags")).toStringList();
    const QString fontText = app.value(QStringLiteral("font")).toString();
    if (!fontText.isEmpty() && !font.fromString(fontText))
        SDBG(LevelWarn) << "font not understood:" << fontText;
    geometry = QByteArray::fromBase64(app.value(QStringLiteral("geometry")).toString().toLatin1());
    splitter = QByteArray::fromBase64(app.value(QStringLiteral("splitter")).toString().toLatin1());
    currentItemName = app.value(QStringLiteral("current_item")).toString();
    language = app.value(QStringLiteral("language")).toString();
    testsPath = app.value(QStringLiteral("tests_path")).toString();
    if (testsPath.isEmpty())
        testsPath = g_tests_dir;
    if (language.isEmpty())
        language = QStringLiteral("ru_RU");
    bPrimaryMaster =
        app.contains(QStringLiteral("primary_master")) ? app.value(QStringLiteral("primary_master")).toBool() : true;
    setLogViewLinesLimit(app.value(QStringLiteral("log_view_lines_limit")).toInt());

    set_cfg_fn(fileName);
    return true;
}

void AppSettings::set_cfg_fn(const QString& fileName)
{
    if (fileName.isEmpty()) {
        g_cfg_fn.clear();
        return;
    }
    g_cfg_fn = QDir::isAbsolutePath(fileName) ? fileName : inDir(g_cfg_dir, fileName);
    writePointer(g_cfg_fn);
}

void AppSettings::setLogViewLinesLimit(int limit)
{
    if (limit >= 1 && limit <= 9999)
        logViewLinesLimit = limit;
}

bool AppSettings::save()
{
    if (g_cfg_fn.isEmpty()) {
        SDBG(LevelErr) << "no configuration file to save to";
        return false;
    }
    QJsonSettings settings(g_cfg_fn);
    // An unreadable file has been kept aside by now (".corrupt") and is
    // replaced; its read error stays in the status, where it would hide the
    // result of the write.
    const bool wasUnreadable = settings.status() == QSettings::FormatError;
    settings.setValue(QStringLiteral("srv"), serverData);

    QVariantMap app;
    app.insert(QStringLiteral("log_flags"), log_flags);
    app.insert(QStringLiteral("language"), language);
    app.insert(QStringLiteral("geometry"), QString::fromLatin1(geometry.toBase64()));
    app.insert(QStringLiteral("splitter"), QString::fromLatin1(splitter.toBase64()));
    app.insert(QStringLiteral("current_item"), currentItemName);
    app.insert(QStringLiteral("font"), font.toString());
    app.insert(QStringLiteral("primary_master"), bPrimaryMaster);
    app.insert(QStringLiteral("tests_path"), testsPath.isEmpty() ? g_tests_dir : testsPath);
    settings.setValue(QStringLiteral("app"), app);
    settings.sync();
    const bool written = wasUnreadable ? QJsonSettings(g_cfg_fn).status() == QSettings::NoError
                                       : settings.status() == QSettings::NoError;
    if (!written) {
        SDBG(LevelErr) << "cannot save" << g_cfg_fn << "status" << settings.status();
        return false;
    }
    writePointer(g_cfg_fn);
    return true;
}
