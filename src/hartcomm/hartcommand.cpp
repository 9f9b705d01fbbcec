#include "hartcommand.h"

#include "debugqt.h"
#include "utils.h"

namespace {

struct BitText
{
    unsigned char bit;
    const char* text;
};

// Communication errors reported by the device in the first status byte (bit 7
// set), in the order they are reported. Bits 0x04 and 0x01 carry no text.
const BitText communicationErrors[] = {
    {0x40, QT_TRANSLATE_NOOP("HartCommand", "*** parity error")},
    {0x20, QT_TRANSLATE_NOOP("HartCommand", "*** speed overflow error")},
    {0x10, QT_TRANSLATE_NOOP("HartCommand", "*** synhronization (frame) error")},
    {0x08, QT_TRANSLATE_NOOP("HartCommand", "*** checksum error")},
    {0x02, QT_TRANSLATE_NOOP("HartCommand", "*** receive buffer overflow error")},
};

// Device status, the second status byte.
const BitText deviceStatusBits[] = {
    {0x80, QT_TRANSLATE_NOOP("HartCommand", "*** Field device malfunction")},
    {0x40, QT_TRANSLATE_NOOP("HartCommand", "*** Configuration changed")},
    {0x20, QT_TRANSLATE_NOOP("HartCommand", "*** Cold start")},
    {0x10, QT_TRANSLATE_NOOP("HartCommand", "*** More status available")},
    {0x08, QT_TRANSLATE_NOOP("HartCommand", "*** Analogue output fixed")},
    {0x04, QT_TRANSLATE_NOOP("HartCommand", "*** Analogue output out of limits")},
    {0x02, QT_TRANSLATE_NOOP("HartCommand", "*** Non-primary variable out of limits")},
    {0x01, QT_TRANSLATE_NOOP("HartCommand", "*** Primary variable out of limits")},
};

// How a response code is taken.
enum class CodeKind {
    Error,   // the command failed; the text goes to the error text
    Warning, // the command was executed; the text goes to the status list
    Mixed,   // code 8 outside its known commands: listed like a warning, yet a failure
    Unknown, // not a code of this system
};

// The meaning of a nonzero response code (first status byte, bit 7 clear),
// which for codes 8 to 12 depends on the command number.
CodeKind responseCode(unsigned char code, unsigned char command, const char*& text)
{
    text = nullptr;
    switch (code) {
    case 2:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** wrong choice");
        break;
    case 3:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** last parameter too large");
        break;
    case 4:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** last parameter too small");
        break;
    case 5:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** too few data bytes have been received");
        break;
    case 6:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** command not executed");
        break;
    case 7:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** write protection mode set");
        break;
    case 8:
        switch (command) {
        case 48:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** update in progress");
            return CodeKind::Warning;
        case 138:
        case 148:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** linearization point not used");
            return CodeKind::Warning;
        case 141:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** temperature is different from previous value at this point");
            return CodeKind::Warning;
        default:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** incorrect input signal type selected");
            return CodeKind::Mixed;
        }
    case 9:
        switch (command) {
        case 35:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** the lower range limit greater of maximum allowable value");
            break;
        case 36:
        case 37:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** PV value is greater of upper range limit");
            break;
        case 38:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** mismatch counter configuration change");
            break;
        case 45:
        case 46:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** incorrect fixed current value");
            break;
        case 133:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** number of decimal places is too large");
            break;
        default:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** value set is too large");
            break;
        }
        break;
    case 10:
        switch (command) {
        case 35:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** the lower range limit less of minimum  allowable value");
            break;
        case 36:
        case 37:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** PV value is less of lower range limit");
            break;
        default:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** value set is too small");
            break;
        }
        break;
    case 11:
        switch (command) {
        case 35:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** the upper range limit greater of maximum allowable value");
            break;
        case 40:
        case 45:
        case 46:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** current output off - device in multidrop mode");
            break;
        default:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** loop Current Not Active (Device in Multidrop Mode)");
            break;
        }
        break;
    case 12:
        switch (command) {
        case 6:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** current output mode incorrect selection");
            break;
        case 35:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** the upper range value less of minimum  allowable value");
            break;
        case 192:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** saved factory settings are missing");
            break;
        default:
            text = QT_TRANSLATE_NOOP("HartCommand", "*** unrecognized error 12");
            break;
        }
        break;
    case 13:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** upper and lower conversion limits are out of permissible values");
        break;
    case 14:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** the minimum range is too small - impaired accuracy");
        return CodeKind::Warning;
    case 16:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** restricted access");
        break;
    case 18:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** invalid unit code");
        break;
    case 29:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** invalid range");
        break;
    case 32:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** device is busy");
        break;
    case 64:
        text = QT_TRANSLATE_NOOP("HartCommand", "*** command not implemented");
        break;
    default:
        return CodeKind::Unknown;
    }
    return CodeKind::Error;
}

// A byte as two hexadecimal digits, zero-filled.
QString hex2(unsigned char byte)
{
    return QStringLiteral("%1").arg(int(byte), 2, 16, QLatin1Char('0'));
}

// A byte for the log.
QByteArray hexLog(unsigned char byte)
{
    return hex2(byte).toLatin1();
}

QString bytesToString(const QByteArray& bytes)
{
    return HartCommand::frameText(bytes);
}

} // namespace

HartCommand::HartCommand(QObject* parent) : QObject(parent)
{
    ItitCommand(5, QByteArray(1, '\0'), 0, QByteArray(), true);
}

HartCommand::HartCommand(QObject* parent, int preambles, const QByteArray& address, unsigned char command,
                         const QByteArray& data, bool primaryMaster)
    : QObject(parent)
{
    ItitCommand(preambles, address, command, data, primaryMaster);
}

HartCommand::HartCommand(QObject* parent, int preambles, unsigned char address, unsigned char command,
                         const QByteArray& data, bool primaryMaster)
    : QObject(parent)
{
    ItitCommand(preambles, QByteArray(1, char(address)), command, data, primaryMaster);
}

void HartCommand::ItitCommand(int preambles, const QByteArray& address, unsigned char command, const QByteArray& data,
                              bool primaryMaster)
{
    m_hasTrash = false;
    m_bFindStartOfMessage = false;
    m_nPreambleLength = preambles;
    m_commandNumber = command;
    m_address = address;

    // Bit 7 of the first address byte tells the primary master from the
    // secondary one. Two to four bytes make a short frame of the first byte.
    if (m_address.isEmpty()) {
        m_address = QByteArray(1, primaryMaster ? char(0x80) : char(0x00));
    } else {
        if (m_address.size() < 5)
            m_address.truncate(1);
        if (primaryMaster)
            m_address[0] = char(m_address.at(0) | 0x80);
        else
            m_address[0] = char(m_address.at(0) & 0x7F);
    }
    // The burst bit is never sent by a master.
    m_address[0] = char(m_address.at(0) & ~0x40);
    if (m_address.size() > 5)
        m_address.truncate(5);

    m_cmdData = data;
    m_statusCode.clear();
    m_startDelimiter = m_address.size() == 5 ? 0x82 : 0x02;
}

QByteArray HartCommand::BuildByteArray() const
{
    QByteArray frame;
    if (m_nPreambleLength > 0)
        frame.fill(char(0xFF), m_nPreambleLength);
    frame.append(char(m_startDelimiter));
    frame.append(m_address);
    frame.append(char(m_commandNumber));
    frame.append(char((m_cmdData.size() + m_statusCode.size()) & 0xFF));
    frame.append(m_statusCode);
    frame.append(m_cmdData);
    frame.append('\0');
    return frame;
}

unsigned char HartCommand::calculateChecksum(const QByteArray& buffer) const
{
    unsigned char checksum = 0;
    for (qsizetype i = qMax(0, m_nPreambleLength); i < buffer.size() - 1; ++i)
        checksum ^= static_cast<unsigned char>(buffer.at(i));
    // The checksum of a secret's request tells part of the secret.
    if (!carriesSecret(m_commandNumber))
        DBG(LevelInfo) << "checksum:" << hexLog(checksum).constData();
    return checksum;
}

QByteArray HartCommand::ToByteArray() const
{
    QByteArray frame = BuildByteArray();
    frame[frame.size() - 1] = char(calculateChecksum(frame));
    return frame;
}

bool HartCommand::IsChecksumCorrect(unsigned char received) const
{
    // The parser keeps no running sum: the frame is rebuilt from the parsed
    // fields, and the received preamble count tells where the sum begins.
    return calculateChecksum(BuildByteArray()) == received;
}

void HartCommand::Reset()
{
    m_currentParseState = NotInCommand;
    m_currentIndex = 0;
}

unsigned char HartCommand::manufacturerID() const
{
    return m_address.size() == 5 ? static_cast<unsigned char>(m_address.at(0)) : 0;
}

unsigned char HartCommand::manufacturerDeviceTypeCode() const
{
    return m_address.size() == 5 ? static_cast<unsigned char>(m_address.at(1)) : 0;
}

QByteArray HartCommand::deviceID() const
{
    return m_address.size() == 5 ? m_address.mid(2, 3) : QByteArray();
}

bool HartCommand::fromByteArray(const QByteArray& buffer, bool findStartOfMessage)
{
    // Fixed lower bound, whatever the buffer holds.
    if (buffer.size() < 9) {
        DBG(LevelErr) << "*** Invalid message size for command parsing: " << buffer.size();
        m_errorText = tr("*** Invalid message size for command parsing: %1").arg(buffer.size());
        return false;
    }

    m_startDelimiter = 0;
    m_hasTrash = false;
    Reset();
    m_bFindStartOfMessage = findStartOfMessage;

    for (const char c : buffer) {
        if (!ParseByte(static_cast<unsigned char>(c))) {
            DBG(LevelErr) << "*** ERROR on step " << int(m_currentParseState);
            return false;
        }
    }

    if (m_currentParseState == Complete) {
        DBG(LevelInfo) << "*** SUCCESS *** ";
        return true;
    }

    DBG(LevelErr) << "*** Incorrect start or end of message!";
    if (m_currentParseState == NotInCommand || m_currentParseState == Preamble)
        m_errorText = tr("*** Start of message not found!");
    else
        m_errorText = tr("*** Unexpected end of message!");
    return false;
}

bool HartCommand::ParseByte(unsigned char byte)
{
    DBG(LevelInfo) << "step:" << int(m_currentParseState) << " byte: " << hexLog(byte).constData();

    switch (m_currentParseState) {
    case NotInCommand:
        if (byte == 0xFF) {
            m_currentParseState = Preamble;
            return ParsePreamble(byte);
        }
        DBG(LevelWarn) << "*** Unexpected start of message: " << hexLog(byte).constData();
        m_hasTrash = true;
        return true;
    case Preamble:
        return ParsePreamble(byte);
    case StartDelimiter:
        return ParseStartDelimiter(byte);
    case Address:
        return ParseAddress(byte);
    case Command:
        return ParseCommand(byte);
    case DataLength:
        return ParseDataLength(byte);
    case Data:
        return ParseData(byte);
    case Checksum:
        return ParseChecksum(byte);
    case Complete:
        // Whatever follows a complete frame is ignored.
        return true;
    }
    return false;
}

bool HartCommand::resynchronise()
{
    // Drop the byte and search on for the next preamble in the same buffer.
    m_currentIndex = 0;
    m_currentParseState = NotInCommand;
    m_hasTrash = true;
    return true;
}

bool HartCommand::ParsePreamble(unsigned char byte)
{
    const int count = m_currentIndex;
    ++m_currentIndex;
    if (byte == 0xFF)
        return true;

    m_nPreambleLength = count;
    m_currentIndex = 0;
    const bool responseDelimiter = (byte & 0x7F) == 0x06;

    if (count < 2) {
        DBG(LevelErr) << "*** Too few preambles have been received";
        return resynchronise();
    }
    if (count <= 4 && !responseDelimiter) {
        DBG(LevelErr) << "*** Too few preambles & invalid delimiter have been received";
        return resynchronise();
    }
    // Five or more preambles after a clean start commit the parser: a bad
    // delimiter is then a hard failure. After noise, or when a search was asked
    // for, it only restarts the search.
    if ((m_hasTrash || m_bFindStartOfMessage) && !responseDelimiter) {
        DBG(LevelErr) << "*** Preambles:" << count << " but invalid delimiter: " << hexLog(byte).constData();
        return resynchronise();
    }

    m_currentParseState = StartDelimiter;
    return ParseByte(byte);
}

bool HartCommand::ParseStartDelimiter(unsigned char byte)
{
    switch (byte) {
    case 0x06:
        m_address = QByteArray(1, '\0');
        m_addressType = Short;
        break;
    case 0x86:
        m_address = QByteArray(5, '\0');
        m_addressType = Long;
        break;
    default:
        DBG(LevelErr) << "*** Invalid delimiter: " << hexLog(byte).constData();
        m_errorText = tr("*** Invalid delimiter: %1").arg(hex2(byte));
        return false;
    }
    m_startDelimiter = byte;
    m_currentParseState = Address;
    m_currentIndex = 0;
    return true;
}

bool HartCommand::ParseAddress(unsigned char byte)
{
    m_address[m_currentIndex] = char(byte);
    ++m_currentIndex;
    if (m_currentIndex == m_address.size()) {
        m_currentParseState = Command;
        m_currentIndex = 0;
    }
    return true;
}

bool HartCommand::ParseCommand(unsigned char byte)
{
    m_commandNumber = byte;
    m_currentParseState = DataLength;
    m_currentIndex = 0;
    return true;
}

bool HartCommand::ParseDataLength(unsigned char byte)
{
    if (byte == 0) {
        m_statusCode.clear();
        m_cmdData.clear();
        m_currentParseState = Checksum;
        m_currentIndex = 0;
        return true;
    }
    if (byte == 1) {
        // A count of 1 cannot hold the two status bytes.
        DBG(LevelErr) << "*** Invalid dataLength (=1) ! ";
        m_errorText = tr("*** Invalid dataLength (=1)");
        return false;
    }
    m_statusCode = QByteArray(2, '\0');
    m_cmdData = QByteArray(byte - 2, '\0');
    m_currentParseState = Data;
    m_currentIndex = 0;
    return true;
}

bool HartCommand::ParseData(unsigned char byte)
{
    if (m_currentIndex < 2)
        m_statusCode[m_currentIndex] = char(byte);
    else
        m_cmdData[m_currentIndex - 2] = char(byte);
    ++m_currentIndex;
    if (m_currentIndex == m_statusCode.size() + m_cmdData.size()) {
        m_currentParseState = Checksum;
        m_currentIndex = 0;
    }
    return true;
}

bool HartCommand::ParseChecksum(unsigned char byte)
{
    m_currentIndex = 0;
    if (IsChecksumCorrect(byte)) {
        m_currentParseState = Complete;
        return true;
    }
    DBG(LevelErr) << "*** Checksum is wrong!";
    m_errorText = tr("*** Checksum is wrong!");
    m_cmdData.clear();
    return false;
}

QString HartCommand::frameText(const QByteArray& frame)
{
    QString text = byteBufferToString(frame.constData(), int(frame.size()));
    int at = 0;
    while (at < frame.size() && quint8(frame.at(at)) == 0xFF)
        ++at;
    if (at >= frame.size())
        return text;
    const quint8 delimiter = quint8(frame.at(at));
    // Only a request (master to device) carries the secret.
    if ((delimiter & 0x07) != 0x02)
        return text;
    const int commandAt = at + 1 + ((delimiter & 0x80) ? 5 : 1);
    if (commandAt >= frame.size() || !carriesSecret(quint8(frame.at(commandAt))))
        return text;
    // After the command and its byte count: data and checksum. Each byte is two
    // digits and a blank in the text.
    const int hiddenFrom = commandAt + 2;
    for (int i = hiddenFrom; i < frame.size(); ++i)
        text.replace(3 * i, 2, QStringLiteral("**"));
    return text;
}

bool HartCommand::checkAnswer(HartCommand& answer)
{
    DBG(LevelInfo) << "\n### send - " << qPrintable(bytesToString(ToByteArray())) << "\n### recv - "
                   << qPrintable(bytesToString(answer.ToByteArray()));

    const bool delimitersPair = (m_startDelimiter == 0x02 && answer.m_startDelimiter == 0x06) ||
                                (m_startDelimiter == 0x82 && answer.m_startDelimiter == 0x86);
    if (!delimitersPair) {
        m_errorText =
            tr("*** start delimiter check error:  %1 / %2").arg(hex2(m_startDelimiter), hex2(answer.m_startDelimiter));
        DBG(LevelErr) << "*** start delimiter check error: " << hexLog(m_startDelimiter).constData() << "/"
                      << hexLog(answer.m_startDelimiter).constData();
        return false;
    }

    if (m_commandNumber != answer.m_commandNumber) {
        m_errorText = tr("*** command number check error:  %1 / %2")
                          .arg(QString::number(m_commandNumber), QString::number(answer.m_commandNumber));
        DBG(LevelErr) << "*** command number check error: " << int(m_commandNumber) << "/"
                      << int(answer.m_commandNumber);
        return false;
    }

    if (m_address == answer.m_address) {
        DBG(LevelInfo) << "success";
        return true;
    }

    // A device in burst mode sets bit 6 of the first address byte; the
    // master's bit must still come back as it went.
    if (m_address.size() == answer.m_address.size() && !answer.m_address.isEmpty() && (answer.m_address.at(0) & 0x40)) {
        DBG(LevelInfo) << "### BURST MODE";
        QByteArray burstAddress = answer.m_address;
        burstAddress[0] = char(burstAddress.at(0) & ~0x40);
        if (burstAddress == m_address) {
            DBG(LevelInfo) << "success ### BURST MODE";
            return true;
        }
    }

    const QString addresses = QStringLiteral("%1 / %2").arg(bytesToString(m_address).remove(QLatin1Char(' ')),
                                                            bytesToString(answer.m_address).remove(QLatin1Char(' ')));
    m_errorText = tr("*** address check error: %1").arg(addresses);
    DBG(LevelErr) << "*** address check error: " << qPrintable(addresses);
    return false;
}

bool HartCommand::checkStatus()
{
    m_statusText.clear();
    DBG(LevelInfo) << "status:" << qPrintable(bytesToString(m_statusCode));

    // A response with byte count 0 carries no status bytes at all.
    const unsigned char code = m_statusCode.size() > 0 ? static_cast<unsigned char>(m_statusCode.at(0)) : 0;
    const unsigned char deviceStatus = m_statusCode.size() > 1 ? static_cast<unsigned char>(m_statusCode.at(1)) : 0;
    if (code == 0 && deviceStatus == 0)
        return true;

    if (code & 0x80) {
        // Communication error seen by the device; the device status byte
        // means nothing then.
        DBG(LevelErr) << "Communication error:" << hexLog(code).constData();
        m_errorText = tr("Communication error:") + QLatin1Char(' ');
        for (const BitText& entry : communicationErrors) {
            if (code & entry.bit) {
                DBG(LevelErr) << entry.text;
                m_errorText += tr(entry.text);
            }
        }
        return false;
    }

    DBG(LevelInfo) << "### Check command=" << int(m_commandNumber) << " status!";
    if (code != 0) {
        m_errorText = tr("Command error (error code %1): ").arg(int(code));

        const char* text = nullptr;
        switch (responseCode(code, m_commandNumber, text)) {
        case CodeKind::Warning:
            DBG(LevelWarn) << text;
            m_statusText.append(tr(text));
            return true;
        case CodeKind::Mixed:
            // Listed as a warning would be, and yet the command failed.
            DBG(LevelErr) << text;
            m_statusText.append(tr(text));
            return false;
        case CodeKind::Error:
            DBG(LevelErr) << text;
            m_errorText += tr(text);
            return false;
        case CodeKind::Unknown:
            DBG(LevelErr) << "*** unknown error code:" << int(code) << "hex:" << hexLog(code).constData();
            m_errorText +=
                tr("*** unknown error code: %1 hex: %2").arg(QString::number(code), QString::number(code, 16));
            return false;
        }
    }

    if (m_statusCode.size() > 1) {
        DBG(LevelInfo) << "### Check second byte...";
        for (const BitText& entry : deviceStatusBits) {
            if (deviceStatus & entry.bit) {
                DBG(LevelWarn) << entry.text;
                m_statusText.append(tr(entry.text));
            }
        }
    }
    return true;
}
