#ifndef BT_H
#define BT_H

#include <cstdio>
#include <string>
#include <vector>

// One line of a captured call stack, taken apart into path, file, symbol and
// address as backtrace_symbols writes it: "path/file(symbol+0x12) [0x4005d0]".
class Frame
{
public:
    explicit Frame(const std::string& symbolLine);

    std::string printable() const;

    const std::string& path() const { return _path; }
    const std::string& file() const { return _file; }
    const std::string& offset() const { return _offset; }
    const std::string& signature() const { return _signature; }
    const std::string& signatureRaw() const { return _signature_raw; }

private:
    void parse(const std::string& symbolLine);

    std::string _path;
    std::string _file;
    std::string _offset;
    std::string _signature;
    std::string _signature_raw;
};

// The call stack of the calling thread, innermost frame first.
class BackTrace
{
public:
    BackTrace();

    // Captures the stack, replacing what an earlier capture held. The frames of
    // the capture itself are kept: skip is accepted for the callers' sake only.
    void here(unsigned int skip);
    std::string printable() const;

    const std::vector<Frame>& frames() const { return _frames; }
    int framesCount() const { return _frames_count; }

private:
    std::vector<Frame> _frames;
    int _frames_count = 0;
};

void backtrace_fd(int fd);
void backtrace_file(FILE* stream);
std::string demangle(const char* name);

#endif // BT_H
