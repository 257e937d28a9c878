#ifndef FUZZINPUT_H
#define FUZZINPUT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

// Reads a fuzz input front to back. Past the end every read yields zero, so
// any byte string decodes to a well-defined call sequence.
class FuzzInput
{
public:
    FuzzInput(const uint8_t *data, size_t size) : m_data(data), m_size(size) {}

    bool atEnd() const { return m_pos >= m_size; }
    size_t remaining() const { return atEnd() ? 0 : m_size - m_pos; }

    uint8_t byte() { return atEnd() ? 0 : m_data[m_pos++]; }
    uint16_t u16() { return uint16_t(byte() | (byte() << 8)); }
    uint32_t u32() { return uint32_t(u16()) | (uint32_t(u16()) << 16); }
    uint64_t u64() { return uint64_t(u32()) | (uint64_t(u32()) << 32); }
    bool flag() { return byte() & 1; }

    // The next eight bytes as they are: any bit pattern, NaN payloads included.
    double rawDouble()
    {
        const uint64_t bits = u64();
        double v;
        std::memcpy(&v, &bits, sizeof v);
        return v;
    }

    // Up to `max` bytes taken verbatim (may hold NULs; the caller terminates).
    size_t bytes(char *out, size_t max)
    {
        const size_t n = byte() % (max + 1);
        size_t i = 0;
        for (; i < n && !atEnd(); ++i)
            out[i] = char(byte());
        return i;
    }

private:
    const uint8_t *m_data;
    size_t m_size;
    size_t m_pos = 0;
};

#endif // FUZZINPUT_H
