#pragma once

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Words.h"
#include "network/Fields.h"

#include <limits>
#include <type_traits>

/// Gives the fields of one message to the setters of a mirror object. A field that is missing, of
/// another type or out of range calls no setter and leaves a log line; an unknown word calls none
/// either.
template <class Target> class FieldSetter
{
public:
    /// `what` names the message in the log.
    FieldSetter(Target& object, const QJsonObject& message, const char* what)
        : target(object), source(message), messageName(what)
    {
    }

    Target& object() const { return target; }
    const QJsonObject& message() const { return source; }

    template <class Setter>
    void integer(const char* field, Setter setter, int lowest = std::numeric_limits<int>::min(),
                 int highest = std::numeric_limits<int>::max())
    {
        const auto value = Fields::integer(source, field);
        if (value && (*value < lowest || *value > highest)) {
            logIgnored(field);
            return;
        }
        set(field, value, setter);
    }

    template <class Setter> void boolean(const char* field, Setter setter)
    {
        set(field, Fields::boolean(source, field), setter);
    }

    template <class Setter> void text(const char* field, Setter setter)
    {
        set(field, Fields::text(source, field), setter);
    }

    /// The value that the table has for the field's word.
    template <class Value, std::size_t count, class Setter>
    void word(const char* field, const std::array<Word<Value>, count>& table, Setter setter)
    {
        const auto name = Fields::text(source, field);
        set(field, name ? valueOfWord(table, *name) : std::nullopt, setter);
    }

    /// Says that a field, or an element of one, was left out.
    void logIgnored(const char* field) const
    {
        Log::dropped(QStringLiteral("Ignored field %1 of %2 %3")
                         .arg(QLatin1String(field), QLatin1String(messageName),
                              QString::number(target.getId())));
    }

private:
    template <class Value, class Setter>
    void set(const char* field, const std::optional<Value>& value, Setter setter)
    {
        if (!value) {
            logIgnored(field);
        } else if constexpr (std::is_member_function_pointer_v<Setter>) {
            (target.*setter)(*value);
        } else {
            setter(*value);
        }
    }

    Target& target;
    const QJsonObject& source;
    const char* messageName;
};
