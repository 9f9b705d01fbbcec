#include "bt.h"

#include <cxxabi.h>
#include <execinfo.h>

#include <cstdlib>
#include <new>

namespace {
const std::string::size_type npos = std::string::npos;
}

std::string demangle(const char* name)
{
    int status = 0;
    char* result = abi::__cxa_demangle(name, nullptr, nullptr, &status);
    std::string text;
    if (status >= 0 && result)
        text = result;
    free(result);
    return text;
}

Frame::Frame(const std::string& symbolLine)
{
    parse(symbolLine);
}

void Frame::parse(const std::string& line)
{
    std::string::size_type pathStart = 0, pathEnd = npos;
    std::string::size_type fileStart = 0, fileEnd = npos;
    std::string::size_type sigStart = npos, sigEnd = npos;
    std::string::size_type offStart = npos, offEnd = npos;

    for (std::string::size_type i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '/') {
            if (sigStart != npos || offStart != npos)
                break;
            pathEnd = i;
            fileStart = i + 1;
        } else if (c == '(') {
            if (offStart != npos)
                break;
            fileEnd = i;
            sigStart = i + 1;
        } else if (c == '+') {
            if (offStart != npos || sigStart == npos)
                break;
            sigEnd = i;
        } else if (c == ')') {
            if (offStart != npos || sigStart == npos)
                break;
        } else if (c == '[') {
            if (sigStart != npos && sigEnd == npos)
                break;
            offStart = i + 1;
        } else if (c == ']') {
            if (offStart == npos || (sigStart != npos && sigEnd == npos))
                break;
            offEnd = i;
        }
    }

    if (pathEnd != npos)
        _path = line.substr(pathStart, pathEnd - pathStart);
    if (fileEnd != npos)
        _file = line.substr(fileStart, fileEnd - fileStart);
    if (sigStart != npos && sigEnd != npos)
        _signature_raw = line.substr(sigStart, sigEnd - sigStart);
    if (offStart != npos && offEnd != npos)
        _offset = line.substr(offStart, offEnd - offStart);
    _signature = demangle(_signature_raw.c_str());
}

std::string Frame::printable() const
{
    return _path + "/" + _file + ": " + (_signature.empty() ? _signature_raw : _signature) + " [" + _offset + "]";
}

BackTrace::BackTrace() = default;

void BackTrace::here(unsigned int /*skip*/)
{
    void* addresses[256];
    const int count = backtrace(addresses, 256);
    char** symbols = backtrace_symbols(addresses, count);
    if (!symbols) {
        fputs("malloc failed on retrieveing backtrace\n", stderr);
        return;
    }
    try {
        _frames_count = count;
        _frames.clear();
        for (int i = 0; i < count; ++i)
            _frames.emplace_back(symbols[i]);
    } catch (const std::bad_alloc&) {
        fputs("There is not enough memory to retrieve backtrace\n", stderr);
    } catch (...) {
        fprintf(stderr, "Unknown exception in %s\n", "here");
    }
    free(symbols);
}

std::string BackTrace::printable() const
{
    std::string text = "BT: obtained " + std::to_string(_frames_count) + " stack frames.\n";
    for (const Frame& frame : _frames)
        text += frame.printable() + "\n";
    return text;
}

void backtrace_fd(int fd)
{
    BackTrace trace;
    trace.here(2);
    dprintf(fd, "%s\n", trace.printable().c_str());
}

void backtrace_file(FILE* stream)
{
    BackTrace trace;
    trace.here(2);
    fprintf(stream, "%s\n", trace.printable().c_str());
}
