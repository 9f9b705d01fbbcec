#ifndef HARTCOMMAND_H
#define HARTCOMMAND_H

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

// One HART frame, in either direction. A request is built from its fields and
// turned into the bytes to send by ToByteArray; a response is filled byte by
// byte by the parse state machine of fromByteArray, which tolerates noise ahead
// of the preambles. checkAnswer judges a parsed response against the request
// it answers, checkStatus gives the meaning of the response's status bytes.
//
// Wire format: preambles (0xFF), start delimiter (0x02/0x82 short/long request,
// 0x06/0x86 short/long response), address (1 or 5 bytes), command, byte count,
// status (2 bytes, responses only), data, checksum (XOR of everything from the
// delimiter to the last data byte).
class HartCommand : public QObject
{
    Q_OBJECT

public:
    enum AddressType {
        Short = 0,
        Long = 1,
    };

    enum ParseState {
        NotInCommand = 0,
        Preamble = 1,
        StartDelimiter = 2,
        Address = 3,
        Command = 4,
        DataLength = 5,
        Data = 6,
        Checksum = 7,
        Complete = 8,
    };

    // 5 preambles, polling address 0, command 0, no data, primary master.
    explicit HartCommand(QObject* parent = nullptr);
    HartCommand(QObject* parent, int preambles, const QByteArray& address, unsigned char command,
                const QByteArray& data, bool primaryMaster);
    HartCommand(QObject* parent, int preambles, unsigned char address, unsigned char command, const QByteArray& data,
                bool primaryMaster);

    // Sets the request fields; may be called again to reuse the object.
    void ItitCommand(int preambles, const QByteArray& address, unsigned char command, const QByteArray& data,
                     bool primaryMaster);

    // The finished frame with its checksum.
    QByteArray ToByteArray() const;
    // The frame's bytes in hexadecimal for a log line. A request of a
    // command that carries a secret (the metrology access code of command
    // 190) shows its data and checksum as "**", so the code reaches no log.
    static QString frameText(const QByteArray& frame);
    static bool carriesSecret(unsigned char command) { return command == SecretCommand; }
    static constexpr unsigned char SecretCommand = 190;
    // Parses one received buffer; true when a complete frame with a correct
    // checksum was found. On false the reason is in errorText().
    bool fromByteArray(const QByteArray& buffer, bool findStartOfMessage);

    // Parts of a long (five-byte) address; 0 or empty for a short address.
    unsigned char manufacturerID() const;
    unsigned char manufacturerDeviceTypeCode() const;
    QByteArray deviceID() const;

    int preamblesLenght() const { return m_nPreambleLength; }
    unsigned char startDelimiter() const { return m_startDelimiter; }
    unsigned char commandNumber() const { return m_commandNumber; }
    QByteArray address() const { return m_address; }
    QByteArray commandData() const { return m_cmdData; }
    QByteArray statusCode() const { return m_statusCode; }
    QStringList statusText() const { return m_statusText; }
    QString errorText() const { return m_errorText; }
    bool hasTrash() const { return m_hasTrash; }

    // Called on the request with the parsed response: true when the response
    // belongs to this request. On false the reason is in this object's errorText().
    bool checkAnswer(HartCommand& answer);
    // Called on the parsed response: false when the device refused the command
    // or reported a communication error. Fills statusText() with warnings and
    // device status texts, and errorText() with the error.
    bool checkStatus();

private:
    QByteArray BuildByteArray() const;
    bool IsChecksumCorrect(unsigned char received) const;
    unsigned char calculateChecksum(const QByteArray& buffer) const;
    void Reset();
    bool ParseByte(unsigned char byte);
    bool ParsePreamble(unsigned char byte);
    bool ParseStartDelimiter(unsigned char byte);
    bool ParseAddress(unsigned char byte);
    bool ParseCommand(unsigned char byte);
    bool ParseDataLength(unsigned char byte);
    bool ParseData(unsigned char byte);
    bool ParseChecksum(unsigned char byte);
    bool resynchronise();

    ParseState m_currentParseState = NotInCommand;
    int m_currentIndex = 0;
    int m_nPreambleLength = 0;
    unsigned char m_startDelimiter = 0;
    unsigned char m_commandNumber = 0;
    AddressType m_addressType = Short;
    QByteArray m_address;
    int m_nShortAddress = 0;
    bool m_hasTrash = false;
    bool m_bFindStartOfMessage = false;
    QByteArray m_cmdData;
    QByteArray m_statusCode;
    QStringList m_statusText;
    QString m_errorText;
};

#endif // HARTCOMMAND_H
