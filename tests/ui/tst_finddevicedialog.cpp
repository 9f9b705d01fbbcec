#include "debugqt.h"
#include "finddevicedialog.h"
#include "modalanswerer.h"
#include "modelline.h"
#include "simulatedline.h"

#include <QComboBox>
#include <QListWidget>
#include <QProgressDialog>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

class TestFindDeviceDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        DebugQt::instance(0, nullptr);
        QString error;
        QVERIFY2(m_sim.startDemo(&error), qPrintable(error));
        m_dialog = FindDeviceDialog::instance(nullptr);
        QCOMPARE(FindDeviceDialog::instance(nullptr), m_dialog);
    }

    void cleanupTestCase()
    {
        delete m_dialog;
        m_sim.stop();
    }

    void init()
    {
        m_dialog->findChild<QListWidget*>("lstPorts")->clear();
        m_dialog->addPorts({m_sim.path()}, true);
        m_sim.line().clearLog();
    }

    void scanFindsTheLine()
    {
        // A port that does not open is said, and the search goes on with the next.
        m_dialog->findChild<QListWidget*>("lstPorts")->clear();
        m_dialog->addPorts({QStringLiteral("/nonexistent/hart"), m_sim.path()}, true);
        ModalAnswerer answerer;
        const QStringList seen = scan(0, 6);
        QCOMPARE(answerer.seen().size(), 1);
        QVERIFY2(answerer.seen().at(0).startsWith("Search device ...|Cannot open the port /nonexistent/hart:"),
                 qPrintable(answerer.seen().at(0)));
        const QString line = m_sim.path();
        QCOMPARE(rows(), QStringList({line + "|0|20 91 00 91 01|TT-101|REACTOR JACKET|01.01.2026|TCV-C",
                                      line + "|1|20 93 00 93 01|PT-102|PUMP DISCHARGE|01.01.2026|QP-1C",
                                      line + "|2|20 94 00 94 01|AT-103|NEUTRAL TANK PH|01.01.2026|pH-7702",
                                      line + "|3|11 2A 00 2A 01|FT-104|COOLING WATER|01.01.2026|General"}));
        for (int address = 0; address < 6; ++address)
            QVERIFY(seen.contains(QStringLiteral("Search by address %1 via %2 ...").arg(address).arg(line)));
        QCOMPARE(requests(0), 6);

        // Every row is offered; the user takes some, with the keys the main window reads.
        QCOMPARE(m_dialog->userSelection().size(), 4);
        auto* table = m_dialog->findChild<QTableWidget*>("tableWidget");
        table->selectRow(3);
        table->setSelectionMode(QAbstractItemView::MultiSelection);
        table->selectRow(1);
        table->setSelectionMode(QAbstractItemView::ExtendedSelection);
        QStringList taken;
        for (const QVariantMap& d : m_dialog->userSelection())
            taken << QStringList{d["port"].toString(),
                                 d["polling_address"].toString(),
                                 d["address"].toByteArray().toHex(' ').toUpper(),
                                 d["tag"].toString(),
                                 d["descriptor"].toString(),
                                 d["date"].toDate().toString("dd.MM.yyyy"),
                                 d["template"].toString(),
                                 d["deviceID"].toByteArray().toHex()}
                         .join('|');
        QCOMPARE(taken, QStringList({rows().at(1) + "|009301", rows().at(3) + "|002a01"}));
    }

    void typedPathJoinsTheList()
    {
        // Enter in the box takes the path, ticked, and leaves the dialog open.
        auto* box = m_dialog->findChild<QComboBox*>("cmbPorts");
        m_dialog->show();
        QTest::keyClicks(box, QStringLiteral("/dev/pts/99"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(m_dialog->selectedPorts(), QStringList({m_sim.path(), QStringLiteral("/dev/pts/99")}));
        QVERIFY(m_dialog->isVisible());
        m_dialog->hide();
    }

    void cancelStopsBeforeNextAddress()
    {
        QTimer canceller;
        connect(&canceller, &QTimer::timeout, m_dialog, [this]() {
            auto* progress = m_dialog->findChild<QProgressDialog*>();
            if (progress && progress->labelText().startsWith("Search by address 1 "))
                progress->cancel();
        });
        canceller.start(5);
        scan(0, 10);
        // Address 1 is done, with its tag; address 2 is never asked.
        QCOMPARE(rows().size(), 2);
        QCOMPARE(requests(0), 2);
        QCOMPARE(requests(13), 2);
    }

    void responseTimeout_data()
    {
        addColumns<int, int, int>({"value", "response", "byte"});
        QTest::newRow("0 gives the defaults") << 0 << 370 << 50;
        QTest::newRow("1: half is 0") << 1 << 1 << 50;
        QTest::newRow("101") << 101 << 101 << 50;
        QTest::newRow("400") << 400 << 400 << 200;
    }

    void responseTimeout()
    {
        QFETCH(int, value);
        auto* spin = m_dialog->findChild<QSpinBox*>("spnResponseTimeout");
        spin->setValue(value == 500 ? 600 : 500);
        spin->setValue(value);
        QTEST(m_dialog->hartPort().responseTimeout(), "response");
        QTEST(m_dialog->hartPort().byteTimeout(), "byte");
    }

private:
    // Scans the addresses from first up to last (not included); the progress
    // texts seen on the way.
    QStringList scan(int first, int last)
    {
        m_dialog->findChild<QSpinBox*>("spnAddressFrom")->setValue(first);
        m_dialog->findChild<QSpinBox*>("spnAddressTo")->setValue(last);
        QStringList seen;
        QTimer watch;
        connect(&watch, &QTimer::timeout, m_dialog, [this, &seen]() {
            if (auto* progress = m_dialog->findChild<QProgressDialog*>()) {
                if (!progress->labelText().isEmpty() && !seen.contains(progress->labelText()))
                    seen << progress->labelText();
            }
        });
        watch.start(5);
        m_dialog->on_btnStart_clicked();
        return seen;
    }

    QStringList rows() const
    {
        auto* table = m_dialog->findChild<QTableWidget*>("tableWidget");
        QStringList rows;
        for (int row = 0; row < table->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < table->columnCount(); ++column)
                cells << table->item(row, column)->text();
            rows << cells.join(QLatin1Char('|'));
        }
        return rows;
    }

    int requests(int command)
    {
        int count = 0;
        for (const hartsim::RequestRecord& record : m_sim.line().requests())
            count += record.command == command;
        return count;
    }

    SimulatedLine m_sim;
    FindDeviceDialog* m_dialog = nullptr;
};

QTEST_MAIN(TestFindDeviceDialog)
#include "tst_finddevicedialog.moc"
