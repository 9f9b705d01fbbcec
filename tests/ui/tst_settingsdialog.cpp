#include "appsettings.h"
#include "columns.h"
#include "modalanswerer.h"
#include "scratchdir.h"
#include "settingsdialog.h"

#include <QCheckBox>
#include <QFontDialog>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

class TestSettingsDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.enter());
        m_settings = *AppSettings::instance();
        m_settings.font = QFont(QStringLiteral("DejaVu Sans"), 10);
    }

    void init() { m_dialog = new SettingsDialog; }

    void cleanup() { delete m_dialog; }

    void fontDialog_data()
    {
        addColumns<bool, bool, QString>({"pick", "acceptIt", "family"});
        QTest::newRow("picked, accepted") << true << true << "DejaVu Serif";
        QTest::newRow("picked, rejected") << true << false << "DejaVu Sans";
        QTest::newRow("nothing picked, accepted") << false << true << "DejaVu Sans";
    }

    void fontDialog()
    {
        QFETCH(bool, pick);
        QFETCH(bool, acceptIt);
        QFETCH(QString, family);
        m_dialog->setSettings(m_settings);
        ModalAnswerer answerer([&](QDialog* dialog) {
            auto* fonts = m_dialog->findChild<QFontDialog*>(QStringLiteral("fontDialog"));
            QCOMPARE(dialog, fonts);
            if (pick)
                fonts->setCurrentFont(QFont(QStringLiteral("DejaVu Serif"), 14));
            acceptIt ? fonts->accept() : fonts->reject();
        });
        child<QPushButton>("btnFont")->click();
        QCOMPARE(answerer.seen().size(), 1);
        QCOMPARE(m_dialog->selectedFont().family(), family);
        QVERIFY(child<QLabel>("lbFont")->text().startsWith(family + QLatin1Char(' ')));
        m_dialog->accept();
        QCOMPARE(m_dialog->settings().font.family(), family);
    }

    // Each row also shows a font of another weight and slant on the label.
    void accept_data()
    {
        QTest::addColumn<QList<bool>>("flagButtons"); // ERR, WARN, INFO
        addColumns<bool, bool, QStringList, int, bool, QString>(
            {"cssBefore", "cssAfter", "flags", "weight", "italic", "fontText"});
        QTest::newRow("all flags, css unchanged, bold italic")
            << QList<bool>{true, true, true} << false << false << QStringList{"ERR", "WARN", "INFO"} << int(QFont::Bold)
            << true << "DejaVu Serif 12pt bold italic";
        QTest::newRow("no flags, css unchanged on, normal")
            << QList<bool>{false, false, false} << true << true << QStringList{} << int(QFont::Normal) << false
            << "DejaVu Serif 12pt  ";
        QTest::newRow("err and info, css turned on, medium italic")
            << QList<bool>{true, false, true} << false << true << QStringList{"ERR", "INFO"} << int(QFont::Medium)
            << true << "DejaVu Serif 12pt bold italic";
        QTest::newRow("warn, css turned off, light")
            << QList<bool>{false, true, false} << true << false << QStringList{"WARN"} << int(QFont::Light) << false
            << "DejaVu Serif 12pt  ";
    }

    void accept()
    {
        QFETCH(QList<bool>, flagButtons);
        QFETCH(bool, cssBefore);
        QFETCH(bool, cssAfter);
        QFETCH(int, weight);
        QFETCH(bool, italic);
        AppSettings settings = m_settings;
        settings.bApplyCss = cssBefore;
        settings.font = QFont(QStringLiteral("DejaVu Serif"), 12, weight, italic);
        // Stored in another order: the result has the buttons' order.
        settings.log_flags = QStringList{"INFO", "WARN", "ERR"};
        settings.bInsertComments = false;
        m_dialog->setSettings(settings);
        QTEST(child<QLabel>("lbFont")->text(), "fontText");
        // The style sheets set the font: the font button is off with them.
        auto* font = child<QPushButton>("btnFont");
        QCOMPARE(font->isEnabled(), !cssBefore);
        const char* const buttons[] = {"b_dbg_err", "b_dbg_warn", "b_dbg_info"};
        for (int i = 0; i < 3; ++i)
            child<QPushButton>(buttons[i])->setChecked(flagButtons.at(i));
        child<QCheckBox>("chkApplyCss")->setChecked(cssAfter);
        QCOMPARE(font->isEnabled(), !cssAfter);
        child<QCheckBox>("chkAddComments")->setChecked(true);
        ModalAnswerer answerer;
        m_dialog->accept();
        QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        QTEST(m_dialog->settings().log_flags, "flags");
        QCOMPARE(m_dialog->settings().bApplyCss, cssAfter);
        QCOMPARE(m_dialog->settings().bInsertComments, true);
        QCOMPARE(answerer.seen(),
                 cssBefore != cssAfter
                     ? QStringList{"Settings changes|Changes w'll take effect after the program is restarted."}
                     : QStringList());
    }

private:
    template <typename T>
    T* child(const char* name) const
    {
        return m_dialog->findChild<T*>(QLatin1String(name));
    }

    ScratchDir m_dir;
    AppSettings m_settings;
    SettingsDialog* m_dialog = nullptr;
};

QTEST_MAIN(TestSettingsDialog)
#include "tst_settingsdialog.moc"
