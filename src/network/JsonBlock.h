#pragma once

#include <QtGlobal>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Where the bytes that matter to the nesting stand in a run of JSON text: one bit a byte, the
/// first byte lowest. Looking at a run at once costs no branch for each of its short strings.
struct JsonBlock {
    static constexpr int size = 64;

    quint64 quotes = 0;
    quint64 backslashes = 0;
    quint64 brackets = 0; ///< of either kind, in strings too
    quint64 commas = 0;   ///< in strings too

    /// Looks at `size` bytes.
    explicit JsonBlock(const char* text)
    {
        for (int at = 0; at < size; at += step) {
            take(text + at, at);
        }
    }

    /// The bytes that stand in a string, its opening quote included, where no byte is escaped;
    /// `inString` says whether the block begins in one.
    quint64 strings(bool inString) const
    {
        quint64 result = quotes;
        for (int shift = 1; shift < size; shift *= 2) {
            result ^= result << shift;
        }
        return inString ? ~result : result;
    }

private:
#ifdef __SSE2__
    static constexpr int step = 16;

    void take(const char* text, int at)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
        // "[" and "{", like "]" and "}", differ in this bit alone.
        const __m128i folded = _mm_or_si128(bytes, _mm_set1_epi8(0x20));
        quotes |= equal(bytes, '"') << at;
        backslashes |= equal(bytes, '\\') << at;
        brackets |= (equal(folded, '{') | equal(folded, '}')) << at;
        commas |= equal(bytes, ',') << at;
    }
    static quint64 equal(__m128i bytes, char byte)
    {
        const __m128i found = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte));
        return static_cast<quint64>(_mm_movemask_epi8(found));
    }
#else
    static constexpr int step = 1;

    void take(const char* text, int at)
    {
        const int folded = *text | 0x20;
        quotes |= static_cast<quint64>(*text == '"') << at;
        backslashes |= static_cast<quint64>(*text == '\\') << at;
        brackets |= static_cast<quint64>(folded == '{' || folded == '}') << at;
        commas |= static_cast<quint64>(*text == ',') << at;
    }
#endif
};
