// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_FUZZING_H
#define BRIMVALE_FUZZING_H

/// \file
/// What every fuzzer needs: a check that ends the run, and the input in pieces.

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

/// What libFuzzer and the replay call with one input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the process, as a sanitizer does, when the code under test does not keep a promise.
#define REQUIRE(condition)                                                                                   \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: not kept: %s\n", __FILE__, __LINE__, #condition);                   \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

/// For what reads JSON with Qt: its reader leaks some bytes where an object has a key twice. Not in a namespace.
#define FUZZING_WITHOUT_LEAK_CHECK                                                                           \
    extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()                   \
    {                                                                                                        \
        return "detect_leaks=0";                                                                             \
    }

namespace Fuzzing
{

/// As REQUIRE(left == right), but shows both texts.
inline void requireEqual(const QString& left, const QString& right, const char* what)
{
    if (left != right) {
        std::fprintf(stderr, "not kept: %s\n  \"%s\"\n  \"%s\"\n", what, qPrintable(left), qPrintable(right));
        std::abort();
    }
}

/// The bytes as UTF-8, all of them: QString takes a byte array only up to its first zero.
inline QString textOf(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

/// The line that a message names which begins "NAME:LINE: " and goes on; 0 for another message.
inline int lineOf(const QString& message, const QString& name)
{
    const QString start = name + QLatin1Char(':');
    const QString end = QStringLiteral(": ");
    const int position = message.indexOf(end, start.size());
    if (!message.startsWith(start) || position < 0 || message.size() == position + end.size()) {
        return 0;
    }
    return message.mid(start.size(), position - start.size()).toInt();
}

/// The same number, a NaN and the sign of zero included.
inline bool isSame(double left, double right)
{
    return std::memcmp(&left, &right, sizeof(double)) == 0 || (std::isnan(left) && std::isnan(right));
}

/// Takes an input apart. Beyond its end there are zeros.
class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    template <typename Value>
    Value take()
    {
        Value value = {};
        const std::size_t count = std::min(sizeof(Value), m_size);
        if (count > 0) {
            std::memcpy(&value, m_data, count);
        }
        m_data += count;
        m_size -= count;
        return value;
    }

    /// All that is left.
    QByteArray rest() const { return {reinterpret_cast<const char*>(m_data), static_cast<int>(m_size)}; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

/// The bytes in pieces whose lengths follow from @p seed: the way a stream happens to arrive.
template <typename Use>
void forEachPiece(const QByteArray& bytes, std::uint32_t seed, Use use)
{
    constexpr std::uint32_t LongestPiece = 9;
    for (int start = 0; start < bytes.size();) {
        seed = seed * 1664525u + 1013904223u;
        const int length = 1 + static_cast<int>((seed >> 16) % LongestPiece);
        use(bytes.mid(start, length));
        start += length;
    }
}

} // namespace Fuzzing

#endif // BRIMVALE_FUZZING_H
