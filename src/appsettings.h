#ifndef APPSETTINGS_H
#define APPSETTINGS_H

#include <QByteArray>
#include <QFont>
#include <QString>
#include <QStringList>
#include <QVariantMap>

// The application's preferences, the server tree last read from the
// configuration file, and the paths of the data directories. The data
// directory is the working directory at start. A pointer file
// (cfg/startup.cfg) names the configuration file in use; the configuration
// file holds "srv" (the object tree) and "app" (these preferences).
class AppSettings
{
public:
    enum TagViewMode { TagViewModeFull = 0, TagViewModeCompact = 1 };
    static QString tagViewModeToString(TagViewMode mode);
    static TagViewMode tagViewModeFromString(const QString& text);

    // Fills the static paths from the present working directory.
    AppSettings();

    static AppSettings* instance();

    bool load();
    bool loadConfig(const QString& fileName);
    bool save();
    static void createDefaultConfig();

    void setLogViewLinesLimit(int limit);

    static const QString& data_dir() { return g_data_dir; }
    static const QString& cfg_dir() { return g_cfg_dir; }
    static const QString& cfg_fn() { return g_cfg_fn; }
    static const QString& log_dir() { return g_log_dir; }
    static const QString& log_fn() { return g_log_fn; }
    static const QString& embedded_templates_dir() { return g_embedded_templates_dir; }
    static const QString& template_ext() { return g_template_ext; }
    static const QString& startup_cfg_fn() { return g_startup_cfg_fn; }
    static const QString& default_config_fn() { return g_default_config_fn; }
    static const QString& time_format() { return g_time_format; }
    // These create their directory, with its parents, when it is missing.
    static const QString& templates_dir();
    static const QString& tests_dir();
    static const QString& archives_dir();

    static void set_cfg_fn(const QString& fileName);

    QStringList log_flags;
    bool log_file_enabled = false;
    bool bInsertComments = false;
    bool bApplyCss = false;
    QFont font;
    QVariantMap serverData;
    QString testsPath;
    QString language;
    QByteArray geometry;
    QByteArray splitter;
    QString currentItemName;
    int logViewLinesLimit = 1000;
    bool bPrimaryMaster = true;

private:
    static QString g_data_dir;
    static QString g_cfg_dir;
    static QString g_log_dir;
    static QString g_arch_dir;
    static QString g_templates_dir;
    static QString g_css_dir;
    static QString g_tests_dir;
    static QString g_startup_cfg_bn;
    static QString g_default_config_bn;
    static QString g_default_log_bn;
    static QString g_startup_cfg_fn;
    static QString g_default_config_fn;
    static QString g_log_fn;
    static QString g_embedded_config_fn;
    static QString g_embedded_templates_dir;
    static QString g_template_ext;
    static QString g_time_format;
    static QString g_cfg_fn;
};

#endif // APPSETTINGS_H
