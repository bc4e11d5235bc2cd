#pragma once

#include "platform/export.h"

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zel::smartassert {

/// What a failed check tells.
struct Report
{
    std::string expression; ///< as written at the place of the check
    std::string file;       ///< path from the root of the tree
    int line;               ///< line of the check, from 1
    std::vector<std::pair<std::string, std::wstring>> values; ///< name and streamed value, in order
    std::string message;                                      ///< UTF-8, empty if there is none
};

using ReportHandler = std::function<void(const Report&)>;

/// Replaces the handler that every later report goes to and returns the previous one. An empty
/// handler restores the default, which writes one line to standard error; the return value is
/// empty while the default was in force. The handler may throw: the exception leaves the place of
/// the check. Not safe against reports from other threads.
ZEL_UNITS_EXPORT ReportHandler setReportHandler(ReportHandler handler);

/// One failed check, from its place in the code to its report. It collects values and a message
/// and reports when the full expression ends; then the code behind the check goes on.
/// Made by ZEL_SMART_ASSERT, not by hand.
class ZEL_UNITS_EXPORT SmartAssert
{
public:
    SmartAssert(const char* expression, const char* file, int line);
    SmartAssert(const SmartAssert&) = delete;
    SmartAssert& operator=(const SmartAssert&) = delete;
    ~SmartAssert() noexcept(false);

    /// Attaches a value under a name, as the classic locale streams it.
    template <class T>
    SmartAssert& value(const char* name, const T& v)
    {
        std::wostringstream stream;
        stream.imbue(std::locale::classic());
        stream << v;
        return addValue(name, stream.str());
    }

    /// Sets the message, in UTF-8.
    SmartAssert& message(const std::string& text);

private:
    SmartAssert& addValue(const char* name, std::wstring streamed);

    Report m_report;
};

namespace detail {

/// Gives both branches of the check the type void; "&" binds weaker than the calls behind it.
struct Discard
{
    void operator&(const SmartAssert&) const {}
};

} // namespace detail
} // namespace zel::smartassert

/// Checks a precondition. If `condition` is false, reports `expression`, which is given as text
/// because it is part of the contract and need not be spelt like the condition; the code then
/// goes on behind the check. Values and a message are appended:
/// ZEL_SMART_ASSERT(min < max, "min < max").value("min", min).value("max", max);
#define ZEL_SMART_ASSERT(condition, expression) ZEL_SMART_ASSERT_AT(condition, expression, __FILE__)

// One expression without parentheses, since values and a message are appended to it.
// NOLINTBEGIN(bugprone-macro-parentheses)

/// The same for a template in a header, whose __FILE__ would depend on who includes it.
#define ZEL_SMART_ASSERT_AT(condition, expression, file)                                           \
    (condition) ? static_cast<void>(0)                                                             \
                : ::zel::smartassert::detail::Discard() &                                          \
                      ::zel::smartassert::SmartAssert((expression), (file), __LINE__)

// NOLINTEND(bugprone-macro-parentheses)
