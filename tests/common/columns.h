#ifndef TESTS_COLUMNS_H
#define TESTS_COLUMNS_H

#include <QtTest>

#include <QByteArray>

#include <array>

// Bytes written in hex: hx("02 80 00").
inline QByteArray hx(const char* hex)
{
    return QByteArray::fromHex(hex);
}

// The columns of a data table, named in order: addColumns<int, QString>({"command", "label"}).
template <typename... T>
void addColumns(const std::array<const char*, sizeof...(T)>& names)
{
    std::size_t i = 0;
    (QTest::addColumn<T>(names[i++]), ...);
}

#endif // TESTS_COLUMNS_H
