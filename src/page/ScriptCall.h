#pragma once

#include <QString>

#include <functional>
#include <type_traits>

/// The one way from native code into the page: a call of a script function that the page may or
/// may not have loaded. A call that no page takes up is lost without a trace.
namespace Page
{

/// One call: the function, and its arguments as literals with commas between. The literals are
/// those of JSON, which the script language reads the same.
struct Call {
    QString function;
    QString arguments;

    /// As script text: `wrapperInput_device_setName(12,"Hall");`.
    QString script() const;
    /// As data: `["wrapperInput_device_setName",12,"Hall"]`.
    QString json() const;
};

/// Receives each call.
using Sink = std::function<void(const Call&)>;

/// Installs the receiver of all later calls; an empty one drops them.
void setSink(Sink sink);

/// Installs what is told of the begin (true) and end of calls that go to the page together.
void setBatchHook(std::function<void(bool)> hook);

/// The calls made while one lives go to the page together, for less than each would cost alone.
class Batch
{
public:
    Batch();
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
};

/// Hands one call to the sink.
void run(const Call& call);

/// The argument as a script literal: whole numbers decimal, doubles in `%g` with six digits, bools
/// as 0 and 1, text in double quotes with everything escaped that could end the literal or the
/// script element around it.
QString literal(const QString& text);
QString literal(double number);
inline QString literal(const char* text)
{
    return literal(QString::fromUtf8(text));
}
template <class Number> std::enable_if_t<std::is_integral_v<Number>, QString> literal(Number number)
{
    if constexpr (std::is_same_v<Number, bool>) {
        return number ? QStringLiteral("1") : QStringLiteral("0");
    } else {
        return QString::number(number);
    }
}

/// Calls `function` in the page. Callers pass values as they are and never escape.
template <class... Arguments> void call(const char* function, const Arguments&... arguments)
{
    Call result{QString::fromLatin1(function), {}};
    [[maybe_unused]] const auto append = [&result](const QString& argument) {
        if (!result.arguments.isEmpty()) {
            result.arguments += QLatin1Char(',');
        }
        result.arguments += argument;
    };
    (append(literal(arguments)), ...);
    run(result);
}

} // namespace Page
