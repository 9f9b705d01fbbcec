#include "columns.h"
#include "deviceadddialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

using Selection = QMap<QString, QString>;

namespace {

// The models in the order of the list.
const QStringList Ids = {"TCV-C", "DX-C", "QP-1C", "pH-7702", "General"};

} // namespace

class TestDeviceAddDialog : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dialog = new DeviceAddDialog;
        m_table = m_dialog->findChild<QTableWidget*>(QStringLiteral("tableWidget"));
        QVERIFY(m_table);
    }

    void cleanup() { delete m_dialog; }

    void rows()
    {
        QCOMPARE(m_table->rowCount(), 5);
        QCOMPARE(m_table->columnCount(), 5);
        const QStringList heads = {"Name", "Template", "Producer", "Description", "Version"};
        for (int column = 0; column < heads.size(); ++column)
            QCOMPARE(m_table->horizontalHeaderItem(column)->text(), heads.at(column));
        for (int row = 0; row < Ids.size(); ++row) {
            QCOMPARE(m_table->item(row, 0)->data(Qt::UserRole).toString(), Ids.at(row));
            QCOMPARE(m_table->item(row, 0)->checkState(), Qt::Unchecked);
            for (int column = 0; column < m_table->columnCount(); ++column)
                QVERIFY(!(m_table->item(row, column)->flags() & Qt::ItemIsEditable));
        }
        QCOMPARE(m_table->item(4, 3)->text(), QStringLiteral("Only universal and common (partly) functions"));
    }

    void selectionBySortedRows_data()
    {
        addColumns<int, QStringList, Selection>({"column", "ticked", "selection"});
        QTest::newRow("by description, descending") << 3 << QStringList{"QP-1C"} << Selection{{"QP-1C", "QP-1C"}};
        QTest::newRow("by name, several")
            << 0 << QStringList{"pH-7702", "TCV-C", "General"}
            << Selection{{"pH-7702", "pH-7702"}, {"TCV-C", "TCV-C"}, {"General", "General"}};
    }

    void selectionBySortedRows()
    {
        QFETCH(int, column);
        QFETCH(QStringList, ticked);
        m_table->sortByColumn(column, Qt::DescendingOrder);
        QStringList order;
        for (int row = 0; row < m_table->rowCount(); ++row)
            order << m_table->item(row, 0)->text();
        QVERIFY2(order != Ids, qPrintable(order.join(' '))); // the rows did move
        // OK wants a tick.
        QVERIFY(!okButton()->isEnabled());
        for (const QString& name : ticked)
            nameItem(name)->setCheckState(Qt::Checked);
        QTEST(m_dialog->userSelection(), "selection");
        for (const QString& name : ticked) {
            QVERIFY(okButton()->isEnabled());
            nameItem(name)->setCheckState(Qt::Unchecked);
        }
        QVERIFY(!okButton()->isEnabled());
    }

private:
    // The row of the table that shows text in the first column.
    QTableWidgetItem* nameItem(const QString& text) const
    {
        for (QTableWidgetItem* item : m_table->findItems(text, Qt::MatchExactly))
            if (item->column() == 0)
                return item;
        return nullptr;
    }
    QPushButton* okButton() const
    {
        return m_dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Ok);
    }

    DeviceAddDialog* m_dialog = nullptr;
    QTableWidget* m_table = nullptr;
};

QTEST_MAIN(TestDeviceAddDialog)
#include "tst_deviceadddialog.moc"
