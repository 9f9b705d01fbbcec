#ifndef READINGSMODEL_H
#define READINGSMODEL_H

#include <QAbstractTableModel>
#include <QDateTime>
#include <QList>
#include <QStringList>
#include <QVariantMap>

#include <deque>

// The table of the measurement tab: a window on the last readings of a
// polled device, oldest first. A reading takes some forty bytes (its texts
// are shared with the reading before it when they are the same), so the
// 300 000 readings of a long poll fit in a few megabytes; a row's texts are
// made only when the view asks for them.
class ReadingsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Variable { PV, Current, SV, TV, QV, VariableCount };

    struct Reading
    {
        qint64 time = 0;                  // ms since the epoch
        float values[VariableCount] = {}; // NaN where the reading has none
        quint8 carried = 0;               // bit i: the reading had variable i
        QString statusCode;
        QString info; // the status text, or the error of a failed reading
        bool failed = false;
    };

    explicit ReadingsModel(QObject* parent = nullptr);

    void setLimit(int rows) { m_limit = rows; }
    int limit() const { return m_limit; }
    // Time, PV with its unit, Current, the shown ones of SV, TV and QV, and
    // the status.
    void setColumns(const QString& pvUnit, const QList<Variable>& shown);
    // One reading of the poll; the oldest goes when the window is full.
    void append(const QVariantMap& reading);
    void clear();
    const Reading& reading(int row) const { return m_rows.at(std::size_t(row)); }
    // The reading as the poll gave it, for the archive's line format.
    QVariantMap readingMap(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    static const char* variableKey(Variable variable);

private:
    std::deque<Reading> m_rows;
    int m_limit = 300000;
    QStringList m_headers;
    QList<Variable> m_columns; // the value column's variable, by column - 1
    QString m_lastCode;
    QString m_lastInfo;
};

#endif // READINGSMODEL_H
