#include "readingsmodel.h"

#include <cmath>
#include <limits>

namespace {

const char* const variableKeys[] = {"PV", "output_current", "SV", "TV", "QV"};

} // namespace

ReadingsModel::ReadingsModel(QObject* parent) : QAbstractTableModel(parent)
{
    setColumns(QString(), {});
}

const char* ReadingsModel::variableKey(Variable variable)
{
    return variableKeys[variable];
}

void ReadingsModel::setColumns(const QString& pvUnit, const QList<Variable>& shown)
{
    beginResetModel();
    m_headers = QStringList{tr("Time"), tr("%1 [%2]").arg(QStringLiteral("PV"), pvUnit), tr("Current")};
    m_columns = {PV, Current};
    for (Variable variable : {SV, TV, QV}) {
        if (shown.contains(variable)) {
            m_headers << QLatin1String(variableKeys[variable]);
            m_columns << variable;
        }
    }
    m_headers << tr("Status");
    endResetModel();
}

void ReadingsModel::append(const QVariantMap& map)
{
    Reading reading;
    reading.time = map.value(QStringLiteral("DateTime")).toDateTime().toMSecsSinceEpoch();
    for (int i = 0; i < VariableCount; ++i) {
        const QVariant value = map.value(QLatin1String(variableKeys[i]));
        reading.values[i] = value.isValid() ? value.toFloat() : std::numeric_limits<float>::quiet_NaN();
        if (value.isValid())
            reading.carried |= quint8(1u << i);
    }
    reading.failed = map.contains(QStringLiteral("errorText"));
    // Equal texts share one copy.
    const QString code = map.value(QStringLiteral("statusCode")).toString();
    if (code != m_lastCode)
        m_lastCode = code;
    reading.statusCode = m_lastCode;
    const QString info =
        map.value(reading.failed ? QStringLiteral("errorText") : QStringLiteral("statusText")).toString();
    if (info != m_lastInfo)
        m_lastInfo = info;
    reading.info = m_lastInfo;

    if (m_limit > 0 && int(m_rows.size()) > m_limit) {
        // A lowered limit: the oldest rows go at once.
        const int excess = int(m_rows.size()) - m_limit;
        beginRemoveRows(QModelIndex(), 0, excess - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + excess);
        endRemoveRows();
    }
    if (m_limit > 0 && int(m_rows.size()) == m_limit) {
        // A full window moves on by one: every row shows the reading after
        // it. Told as a change of data, not as a row removed and one added,
        // since a view's header would move all of its 300 000 sections.
        m_rows.pop_front();
        m_rows.push_back(std::move(reading));
        emit dataChanged(index(0, 0), index(m_limit - 1, columnCount() - 1));
        return;
    }
    const int row = int(m_rows.size());
    beginInsertRows(QModelIndex(), row, row);
    m_rows.push_back(std::move(reading));
    endInsertRows();
}

void ReadingsModel::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

QVariantMap ReadingsModel::readingMap(int row) const
{
    const Reading& r = reading(row);
    QVariantMap map;
    map.insert(QStringLiteral("DateTime"), QDateTime::fromMSecsSinceEpoch(r.time));
    for (int i = 0; i < VariableCount; ++i) {
        // A value the device gave as not a number is written as the archive
        // writes it.
        if ((r.carried & (1u << i)) || i == PV || i == Current)
            map.insert(QLatin1String(variableKeys[i]), r.values[i]);
    }
    map.insert(QStringLiteral("statusCode"), r.statusCode);
    map.insert(r.failed ? QStringLiteral("errorText") : QStringLiteral("statusText"), r.info);
    return map;
}

int ReadingsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ReadingsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_headers.size());
}

QVariant ReadingsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_rows.size()))
        return QVariant();
    const int column = index.column();
    const bool isStatus = column == int(m_headers.size()) - 1;
    if (role == Qt::TextAlignmentRole)
        return isStatus || column == 0 ? int(Qt::AlignLeft | Qt::AlignVCenter) : int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return QVariant();
    const Reading& r = reading(index.row());
    if (column == 0)
        return QDateTime::fromMSecsSinceEpoch(r.time).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    if (isStatus)
        return r.statusCode.isEmpty() ? r.info : r.statusCode + QLatin1Char(' ') + r.info;
    const float value = r.values[m_columns.value(column - 1)];
    // A failed reading has no values of its own.
    if (r.failed || std::isnan(value))
        return QString();
    return QString::number(double(value), 'f', 2);
}

QVariant ReadingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section + 1;
    return m_headers.value(section);
}

Qt::ItemFlags ReadingsModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}
