#include "hartport.h"

#include "debugqt.h"
#include "hartcommand.h"
#include "utils.h"

#include <QDate>
#include <QElapsedTimer>

HartPort::HartPort(QObject* parent) : QObject(parent)
{
    setProperty("request_timeout", DefaultRequestTimeout);
    setProperty("response_timeout", DefaultResponseTimeout);
    setProperty("byte_timeout", DefaultByteTimeout);
}

HartPort::HartPort(QObject* parent, const QString& serialName) : HartPort(parent)
{
    setSerialName(serialName);
}

HartPort::~HartPort()
{
    close();
}

int HartPort::responseTimeout() const
{
    return property("response_timeout").toInt();
}

int HartPort::byteTimeout() const
{
    return property("byte_timeout").toInt();
}

int HartPort::requestTimeout() const
{
    return property("request_timeout").toInt();
}

void HartPort::setRequestTimeout(int ms)
{
    setProperty("request_timeout", ms < 1 ? DefaultRequestTimeout : ms);
}

void HartPort::setResponseTimeout(int ms)
{
    setProperty("response_timeout", ms < 1 ? DefaultResponseTimeout : ms);
}

void HartPort::setByteTimeout(int ms)
{
    setProperty("byte_timeout", ms < 1 ? DefaultByteTimeout : ms);
}

void HartPort::setError(int code, const QString& text)
{
    m_error = code;
    m_errorText = text;
}

void HartPort::setUseThread(bool useThread)
{
    if (useThread == m_useThread)
        return;
    close();
    m_useThread = useThread;
    if (!m_useThread)
        m_serial.setPortName(m_serialName);
}

void HartPort::setSerialName(const QString& name)
{
    if (!m_useThread) {
        if (m_serial.isOpen())
            m_serial.close();
        m_serial.setPortName(name);
    }
    m_serialName = name;
}

bool HartPort::isOpen()
{
    return m_useThread ? m_thread.isOpen() : m_serial.isOpen();
}

bool HartPort::open()
{
    DBG(LevelInfo) << "open" << m_serialName << "- open now:" << isOpen();
    if (m_useThread) {
        m_thread.transaction(m_serialName, requestTimeout(), responseTimeout(), byteTimeout(), QByteArray());
        waitThreadAnswer();
        return isOpen();
    }

    if (m_serial.isOpen())
        m_serial.close();
    m_serial.setPortName(m_serialName);
    m_serial.setBaudRate(QSerialPort::Baud1200, QSerialPort::AllDirections);
    m_serial.setParity(QSerialPort::OddParity);
    m_serial.setDataBits(QSerialPort::Data8);
    m_serial.setStopBits(QSerialPort::OneStop);
    if (!m_serial.open(QIODevice::ReadWrite)) {
        setError(PortThread::errorCode(m_serial.error()), PortThread::openErrorText(m_serial));
        DBG(LevelErr) << "error:" << m_errorText;
        return false;
    }
    setError(0, QString());
    // The modem listens while DTR is on and RTS off. A pseudo-terminal has no
    // such lines; the exchange goes on without them.
    if (!m_serial.setDataTerminalReady(true) || !m_serial.setRequestToSend(false))
        DBG(LevelInfo) << "no modem control lines on" << m_serialName << ":" << m_serial.errorString();
    m_serial.clearError();
    return true;
}

void HartPort::close()
{
    if (m_useThread) {
        if (isOpen()) {
            m_thread.transaction(QString(), 0, 0, 0, QByteArray());
            waitThreadAnswer();
        }
        return;
    }
    m_serial.close();
    m_serial.clearError();
    setError(0, QString());
}

bool HartPort::sendCommand(HartCommand& command, QByteArray& responseData)
{
    DBG(LevelInfo) << "### SEND COMMAND: " << int(command.commandNumber());
    m_statusText.clear();
    m_statusCode.clear();
    setError(0, QString());

    HartCommand answer;
    m_request = command.ToByteArray();
    if (!sendRequest()) {
        DBG(LevelErr) << "*** Send request error!";
        return false;
    }
    if (!answer.fromByteArray(m_response, m_findStartOfMessage)) {
        DBG(LevelErr) << "*** Response command parsing error:" << answer.errorText();
        setError(-1, tr("Response command parsing error: ") + answer.errorText());
        return false;
    }
    if (!command.checkAnswer(answer)) {
        DBG(LevelErr) << "Command response check error:" << command.errorText();
        setError(-2, tr("Invalid command response: ") + command.errorText());
        return false;
    }
    if (!answer.checkStatus()) {
        DBG(LevelErr) << "Command STATUS check error:" << answer.errorText();
        setError(-3, answer.errorText());
        m_statusText = answer.statusText();
        m_statusCode = answer.statusCode();
        return false;
    }
    m_statusText = answer.statusText();
    m_statusCode = answer.statusCode();
    responseData = answer.commandData();

    // The identifying commands tell how many preambles the device wants;
    // never fewer than 5.
    const unsigned char number = command.commandNumber();
    if (number == 0 || number == 11 || number == 73) {
        const int used = answer.preamblesLenght();
        if (used != m_preambles) {
            m_preambles = qMax(used, 5);
            DBG(LevelInfo) << "preambles now" << m_preambles;
        }
    }
    return true;
}

bool HartPort::sendCommand(const QByteArray& address, unsigned char command, const QByteArray& data,
                           QByteArray& responseData, bool primaryMaster)
{
    const int preambles = command == 21 || command == 11 || command == 73 ? m_startPreambles : m_preambles;
    HartCommand request(nullptr, preambles, address, command, data, primaryMaster);
    return sendCommand(request, responseData);
}

bool HartPort::sendCommand(unsigned char address, unsigned char command, const QByteArray& data,
                           QByteArray& responseData, bool primaryMaster)
{
    const int preambles = command == 0 ? m_startPreambles : m_preambles;
    HartCommand request(nullptr, preambles, address, command, data, primaryMaster);
    return sendCommand(request, responseData);
}

bool HartPort::sendZeroCommand(unsigned char address, QByteArray& responseData, bool primaryMaster)
{
    DBG(LevelInfo) << "command 0 to address" << int(address);
    const bool ok = sendCommand(address, 0, QByteArray(), responseData, primaryMaster);
    if (ok)
        DBG(LevelInfo) << "response len: " << responseData.size();
    return ok;
}

bool HartPort::parseCommandZeroResponse(const QByteArray& response, QVariantMap& info)
{
    if (response.size() < 12) {
        setError(-2, tr("Invalid response lenght of command ZERO."));
        DBG(LevelErr) << m_errorText << byteBufferToString(response.constData(), int(response.size()));
        return false;
    }
    auto byte = [&](int index) { return index < response.size() ? int(quint8(response.at(index))) : 0; };

    DBG(LevelInfo) << "manufacturer:" << byte(1) << "device type:" << byte(2) << "min preambles:" << byte(3)
                   << "universal:" << byte(4) << "specific:" << byte(5) << "software:" << byte(6)
                   << "hardware:" << byte(7) << "flags:" << byte(8)
                   << "device id:" << byteBufferToString(response.constData() + 9, 3);

    QByteArray address;
    address.append(char(byte(1) & 0x3F));
    address.append(response.mid(2, 1));
    address.append(response.mid(9, 3));

    if (qint8(response.at(3)) > qint8(m_preambles))
        m_preambles = qint8(response.at(3));

    info.insert(QStringLiteral("manufacturer_code"), byte(1));
    info.insert(QStringLiteral("device_type_code"), byte(2));
    info.insert(QStringLiteral("min_preambles_count"), byte(3));
    info.insert(QStringLiteral("expanded_device_type"), response.mid(1, 2));
    info.insert(QStringLiteral("preambles_count"), m_preambles);
    info.insert(QStringLiteral("universal_cmd_version"), byte(4));
    info.insert(QStringLiteral("specific_cmd_version"), byte(5));
    info.insert(QStringLiteral("software_version"), byte(6));
    info.insert(QStringLiteral("hardware_version"), byte(7));
    info.insert(QStringLiteral("device_flags"), byte(8));
    info.insert(QStringLiteral("deviceID"), response.mid(9, 3));
    info.insert(QStringLiteral("address"), address);

    if (response.size() == 12) {
        info.insert(QStringLiteral("vendorID"), QByteArray(2, '\0'));
        return true;
    }
    info.insert(QStringLiteral("preambles_count"), byte(12));
    info.insert(QStringLiteral("dev_variables_count"), byte(13));
    info.insert(QStringLiteral("modify_count"), byte(14) * 256 + byte(15));
    info.insert(QStringLiteral("extended_status"), byte(16));
    QByteArray vendor;
    vendor.append(char(byte(17)));
    vendor.append(char(byte(18)));
    info.insert(QStringLiteral("vendorID"), vendor);
    return true;
}

void HartPort::parseCommand13Response(const QByteArray& response, QVariantMap& info)
{
    QByteArray bytes = response.left(21);
    bytes.append(QByteArray(21 - bytes.size(), '\0'));
    const QString tag = unpackAscii(bytes.left(6));
    const QString descriptor = unpackAscii(bytes.mid(6, 12));
    const int day = quint8(bytes.at(18));
    const int month = quint8(bytes.at(19));
    const int year = quint8(bytes.at(20));
    DBG(LevelInfo) << "### TAG: " << tag;
    DBG(LevelInfo) << "### DESC: " << descriptor;
    DBG(LevelInfo) << "### day: " << day << "month: " << month << "year: " << year;
    info.insert(QStringLiteral("tag"), tag);
    info.insert(QStringLiteral("descriptor"), descriptor);
    info.insert(QStringLiteral("date"), QDate(1900 + year, month, day));
}

QByteArray HartPort::packAscii(const QString& text)
{
    if (text.size() > 32) {
        DBG(LevelErr) << "*** string is too long ( > 32)!";
        return QByteArray();
    }
    const int count = int(text.size());
    QByteArray packed(count, '\0');
    auto at = [&](int k) { return quint8(text.at(k).toLatin1()); };
    for (int k = 0; k < count; k += 4) {
        const int b = k / 4 * 3;
        packed[b] = char(at(k) << 2);
        if (k + 1 < count) {
            packed[b] = char(packed.at(b) | ((at(k + 1) >> 4) & 0x03));
            packed[b + 1] = char(at(k + 1) << 4);
        }
        if (k + 2 < count) {
            packed[b + 1] = char(packed.at(b + 1) | ((at(k + 2) >> 2) & 0x0F));
            packed[b + 2] = char(at(k + 2) << 6);
        }
        if (k + 3 < count)
            packed[b + 2] = char(packed.at(b + 2) | (at(k + 3) & 0x3F));
    }
    packed.truncate(count / 4 * 3 + qMin(count % 4, 3));
    return packed;
}

QString HartPort::unpackAscii(const QByteArray& buffer)
{
    if (buffer.size() > 24) {
        DBG(LevelErr) << "*** buffer is too long ( > 24)!";
        return QString();
    }
    int size = int(buffer.size());
    while (size > 0 && buffer.at(size - 1) == '\0')
        --size;

    QString text;
    auto put = [&text](int code) { text.append(QLatin1Char(char(code & 0x20 ? code : code | 0x40))); };
    for (int k = 0; k < size; k += 3) {
        const int b0 = quint8(buffer.at(k));
        put(b0 >> 2);
        if (k + 1 < size) {
            const int b1 = quint8(buffer.at(k + 1));
            put(((b0 & 0x03) << 4) | (b1 >> 4));
            if (k + 2 < size) {
                const int b2 = quint8(buffer.at(k + 2));
                put(((b1 & 0x0F) << 2) | (b2 >> 6));
                put(b2 & 0x3F);
            }
        }
    }
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

bool HartPort::sendRequest()
{
    if (!m_useThread)
        return sendRequestDirect();
    m_thread.transaction(m_serialName, requestTimeout(), responseTimeout(), byteTimeout(), m_request);
    return waitThreadAnswer();
}

bool HartPort::waitThreadAnswer()
{
    m_thread.waitResponse();
    const PortThread::Result result = m_thread.result();
    m_txLog = result.txLog;
    m_rxLog = result.rxLog;
    m_response = result.response;
    setError(result.error, result.errorText);
    logTraffic();
    return m_error == 0;
}

bool HartPort::sendRequestDirect()
{
    m_response.clear();
    m_txLog.clear();
    m_rxLog.clear();
    m_serial.clearError();
    if (m_serial.bytesAvailable() != 0 || m_serial.waitForReadyRead(0))
        m_serial.clear(QSerialPort::AllDirections);

    // The modem sends while RTS is on.
    m_serial.setDataTerminalReady(false);
    m_serial.setRequestToSend(true);
    m_serial.clearError();
    mySleep(5);

    QElapsedTimer clock;
    clock.start();
    if (m_serial.write(m_request) < m_request.size()) {
        DBG(LevelErr) << "*** Serial port write error - " << m_serial.errorString();
        setError(PortThread::WriteErrorCode, m_serial.errorString());
        return false;
    }
    if (!m_serial.waitForBytesWritten(requestTimeout())) {
        DBG(LevelErr) << "*** Request timeout - " << requestTimeout();
        setError(PortThread::TimeoutErrorCode, tr("Request timeout"));
        return false;
    }
    m_serial.setRequestToSend(false);
    m_serial.setDataTerminalReady(true);
    m_serial.clearError();
    mySleep(PortThread::transmitWaitMs(int(m_request.size())));
    m_txTime = int(clock.elapsed());
    m_txLog = buildLogString(QStringLiteral("TX"));

    clock.restart();
    if (!m_serial.waitForReadyRead(responseTimeout())) {
        DBG(LevelErr) << "*** Response timeout! timeout:" << responseTimeout();
        const bool lost = m_serial.error() == QSerialPort::ResourceError || m_serial.error() == QSerialPort::ReadError;
        setError(lost ? PortThread::errorCode(m_serial.error()) : int(PortThread::TimeoutErrorCode),
                 lost ? m_serial.errorString() : tr("Response timeout (%1ms)").arg(responseTimeout()));
        DBG(LevelErr) << "*** Error: " << m_errorText << "code - " << m_error;
        if (lost)
            m_serial.close();
        return false;
    }
    m_response = m_serial.readAll();
    while (m_serial.waitForReadyRead(byteTimeout()))
        m_response += m_serial.readAll();
    m_rxTime = int(clock.elapsed());
    m_rxLog = buildLogString(QStringLiteral("RX"));
    m_serial.clearError();
    setError(0, QString());
    logTraffic();
    return true;
}

void HartPort::logTraffic()
{
    // The lines as they stand, without the quotes of a text item.
    if (!m_txLog.isEmpty())
        DBG(LevelInfo) << m_txLog.toUtf8().constData();
    if (!m_rxLog.isEmpty())
        DBG(LevelInfo) << m_rxLog.toUtf8().constData();
}

QString HartPort::buildLogString(const QString& direction) const
{
    const bool tx = direction == QLatin1String("TX");
    return PortThread::logLine(direction, tx ? m_txTime : m_rxTime, tx ? m_request : m_response);
}
