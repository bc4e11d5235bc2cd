#include "platform/smart_assert.h"

#include <cstdio>

namespace zel::smartassert {
namespace {

ReportHandler& currentHandler()
{
    static ReportHandler handler;
    return handler;
}

/// One code point as UTF-8; what is no code point becomes U+FFFD.
void appendUtf8(std::string& out, char32_t c)
{
    if (c > 0x10ffff || (c >= 0xd800 && c <= 0xdfff)) {
        c = 0xfffd;
    }
    const auto byte = [&out](char32_t b) { out.push_back(static_cast<char>(b)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xc0 | (c >> 6));
        byte(0x80 | (c & 0x3f));
    } else if (c < 0x10000) {
        byte(0xe0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3f));
        byte(0x80 | (c & 0x3f));
    } else {
        byte(0xf0 | (c >> 18));
        byte(0x80 | ((c >> 12) & 0x3f));
        byte(0x80 | ((c >> 6) & 0x3f));
        byte(0x80 | (c & 0x3f));
    }
}

/// Line ends inside a value or message would break the promise of one line per report.
void appendOneLine(std::string& out, const std::string& text)
{
    for (const char c : text) {
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else {
            out.push_back(c);
        }
    }
}

void writeToStandardError(const Report& report)
{
    std::string line = report.file + ":" + std::to_string(report.line) + ": assertion failed: ";
    appendOneLine(line, report.expression);
    for (const auto& [name, value] : report.values) {
        std::string utf8;
        for (const wchar_t c : value) {
            appendUtf8(utf8, static_cast<char32_t>(c));
        }
        line += "; " + name + " = ";
        appendOneLine(line, utf8);
    }
    if (!report.message.empty()) {
        line += "; ";
        appendOneLine(line, report.message);
    }
    line += '\n';
    std::fputs(line.c_str(), stderr);
}

} // namespace

ReportHandler setReportHandler(ReportHandler handler)
{
    return std::exchange(currentHandler(), std::move(handler));
}

SmartAssert::SmartAssert(const char* expression, const char* file, int line)
    : m_report{expression, file, line, {}, {}}
{}

SmartAssert::~SmartAssert() noexcept(false)
{
    // A copy, so that a handler may replace itself while it runs.
    const ReportHandler handler = currentHandler();
    if (handler) {
        handler(m_report);
    } else {
        writeToStandardError(m_report);
    }
}

SmartAssert& SmartAssert::addValue(const char* name, std::wstring streamed)
{
    m_report.values.emplace_back(name, std::move(streamed));
    return *this;
}

SmartAssert& SmartAssert::message(const std::string& text)
{
    m_report.message = text;
    return *this;
}

} // namespace zel::smartassert
