/// Reading request data and writing answer data, low byte first, never outside the bytes at hand.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ipmcd
{

/// Walks over the data of a request. What lies beyond the end reads as 0: the lengths a command takes are checked
/// before its handler runs, so a handler reads on without asking.
class byte_reader
{
public:
    explicit byte_reader(std::span<const uint8_t> bytes) : rest(bytes) {}

    size_t left() const { return rest.size(); }
    /// The next `count` bytes, or as many as are left.
    std::span<const uint8_t> bytes(size_t count)
    {
        const auto taken = rest.first(std::min(count, rest.size()));
        rest = rest.subspan(taken.size());
        return taken;
    }
    uint8_t u8()
    {
        const auto taken = bytes(1);
        return taken.empty() ? uint8_t{0} : taken[0];
    }
    uint16_t u16le()
    {
        const uint8_t low = u8();
        return uint16_t(low | u8() << 8);
    }
    uint32_t u32le()
    {
        const uint32_t low = u16le();
        return low | uint32_t{u16le()} << 16;
    }

private:
    std::span<const uint8_t> rest;
};

/// Collects the data of an answer. Bytes beyond what an answer can carry are dropped and `overflown` says so.
class byte_writer
{
public:
    /// A frame of 1024 bytes, the most a client takes, less seven bytes in front of the data and the checksum.
    static constexpr size_t capacity = 1024 - 8;

    byte_writer &u8(uint8_t value)
    {
        if (count == capacity)
            full = true;
        else
            buffer[count++] = value;
        return *this;
    }
    byte_writer &u16le(uint16_t value) { return u8(uint8_t(value)).u8(uint8_t(value >> 8)); }
    byte_writer &u32le(uint32_t value) { return u16le(uint16_t(value)).u16le(uint16_t(value >> 16)); }
    byte_writer &bytes(std::span<const uint8_t> values)
    {
        for (const uint8_t value : values)
            u8(value);
        return *this;
    }
    bool overflown() const { return full; }
    std::span<const uint8_t> written() const { return {buffer.data(), count}; }

private:
    std::array<uint8_t, capacity> buffer{};
    size_t count = 0;
    bool full = false;
};

}  // namespace ipmcd
