#ifndef HARTPORT_H
#define HARTPORT_H

#include "portthread.h"

#include <QByteArray>
#include <QObject>
#include <QSerialPort>
#include <QStringList>
#include <QVariantMap>

class HartCommand;

// The HART master on one serial line: turns a command for an address into a
// frame, runs the exchange through its PortThread, checks the answer and
// hands back the data, the status and a result code:
//   0 success, above 0 a QSerialPort error code (12 a timeout),
//   -1 the answer could not be parsed, -2 it does not belong to the request
//   (or a command 0 answer is too short), -3 the device reported an error.
// The timeouts are the dynamic properties "request_timeout" (200 ms),
// "response_timeout" (370 ms) and "byte_timeout" (50 ms), read afresh for each
// exchange. Callers serialise their exchanges on a line themselves.
class HartPort : public QObject
{
    Q_OBJECT

public:
    explicit HartPort(QObject* parent = nullptr);
    HartPort(QObject* parent, const QString& serialName);
    ~HartPort() override;

    bool open();
    void close();
    bool isOpen();
    void setSerialName(const QString& name);
    QString serialName() const { return m_serialName; }

    int responseTimeout() const;
    int byteTimeout() const;
    int requestTimeout() const;
    // Values below 1 give the defaults, 200, 370 and 50 ms.
    void setRequestTimeout(int ms);
    void setResponseTimeout(int ms);
    void setByteTimeout(int ms);

    bool sendCommand(HartCommand& command, QByteArray& responseData);
    // Commands 11, 21 and 73 go out with the start preambles, others with the
    // learned count.
    bool sendCommand(const QByteArray& address, unsigned char command, const QByteArray& data, QByteArray& responseData,
                     bool primaryMaster);
    // Command 0 goes out with the start preambles, others with the learned
    // count.
    bool sendCommand(unsigned char address, unsigned char command, const QByteArray& data, QByteArray& responseData,
                     bool primaryMaster);
    bool sendZeroCommand(unsigned char address, QByteArray& responseData, bool primaryMaster);
    // Reads the identity of a command 0 (11, 21, 73) answer into info.
    bool parseCommandZeroResponse(const QByteArray& response, QVariantMap& info);
    // Reads a command 13 answer into info: "tag" and "descriptor" (packed
    // ASCII) and "date" (day, month, year - 1900; invalid where the device
    // keeps none). Bytes the answer lacks read as 0.
    void parseCommand13Response(const QByteArray& response, QVariantMap& info);

    // Four 6-bit characters in three bytes. No upper-casing, no padding.
    QByteArray packAscii(const QString& text);
    QString unpackAscii(const QByteArray& buffer);

    int error() const { return m_error; }
    QString errorText() const { return m_errorText; }
    QByteArray statusCode() const { return m_statusCode; }
    QStringList statusText() const { return m_statusText; }
    QByteArray lastRequest() const { return m_request; }
    QByteArray lastResponse() const { return m_response; }
    QString txLog() const { return m_txLog; }
    QString rxLog() const { return m_rxLog; }
    int preambles() const { return m_preambles; }
    int startPreambles() const { return m_startPreambles; }
    void setStartPreambles(int count) { m_startPreambles = count; }

    // The exchange without the transaction thread, with the modem handshake
    // on RTS and DTR. The program runs with the thread; the direct path is
    // kept as the alternative for modems that need the handshake.
    bool usesThread() const { return m_useThread; }
    void setUseThread(bool useThread);

    static constexpr int DefaultRequestTimeout = 200;
    static constexpr int DefaultResponseTimeout = 370;
    static constexpr int DefaultByteTimeout = 50;

private:
    bool sendRequest();
    bool sendRequestDirect();
    bool waitThreadAnswer();
    QString buildLogString(const QString& direction) const;
    void logTraffic();
    void setError(int code, const QString& text);

    int m_txTime = 0;
    int m_rxTime = 0;
    QByteArray m_request;
    QByteArray m_response;
    QString m_txLog;
    QString m_rxLog;
    QSerialPort m_serial;
    QString m_serialName;
    int m_error = 0;
    QString m_errorText;
    QByteArray m_statusCode;
    QStringList m_statusText;
    int m_preambles = 5;
    int m_startPreambles = 10;
    bool m_findStartOfMessage = false;
    PortThread m_thread;
    bool m_useThread = true;
};

#endif // HARTPORT_H
