#ifndef APPLICATION_H
#define APPLICATION_H

#include <QApplication>
#include <QHash>
#include <QStringList>

class QDir;
class QTranslator;

// The application object: holds the translations found at start and switches
// between them, and applies the style sheets.
class Application : public QApplication
{
    Q_OBJECT

public:
    using Translators = QHash<QString, QTranslator*>;

    Application(int& argc, char** argv);

    // Loads every "*_*.qm" of the directory under the key language_COUNTRY,
    // taken from the last two parts of the file's base name. Installs nothing.
    static void loadTranslations(const QString& dir);
    static void loadTranslations(const QDir& dir);
    static QStringList availableLanguages();
    static QString language();

    void loadCss();
    QString readAllFiles(const QString& path, const QStringList& filters);

public slots:
    // An unknown locale removes the present translator and installs none,
    // while language() keeps reporting the previous one.
    static void setLanguage(const QString& locale);

private:
    static QTranslator* current;
    static Translators translators;
    static QString currentLocale;
};

// Handler of SIGTERM, SIGHUP (and SIGINT): exit 0; of SIGSEGV: print the stack
// and exit 139.
void sig_handler(int signo);

#endif // APPLICATION_H
