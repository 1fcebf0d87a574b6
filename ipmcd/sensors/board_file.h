/// Boards: which sensors there are and how their records are told, from a JSON file.
#pragma once

#include "ipmcd/json_fields.h"
#include "ipmcd/sensors/records.h"

#include <string>
#include <vector>

namespace ipmcd
{

enum class sdr_source : uint8_t { repository, device, both };
constexpr const char *sdr_source_words[] = {"repository", "device", "both"};

struct board_description {
    std::string name;
    /// Who tells the records: an SDR repository, or the sensors' own device (IPMI 2.0, Device SDRs).
    sdr_source source = sdr_source::repository;
    /// How many bytes of a record one answer carries at most.
    uint8_t largest_read = 255;
    std::vector<sdr_record> records;  // ids 1, 2, 3 ...
    std::vector<sensor> sensors;

    bool has_repository() const { return source != sdr_source::device; }
    bool has_device_sdrs() const { return source != sdr_source::repository; }
};

/// Throws bad_state with the place in the file and what is wrong there.
board_description read_board(const json &file);

/// A board by its name, when it is one of those that are built in, or else by the path of its file. Throws
/// std::runtime_error with a text for the user.
board_description load_board(const std::string &name_or_path);

/// The raw reading for a value in a sensor's unit. Refuses what is no number, or outside of what the sensor can say.
uint8_t raw_from_json(const json &value, const json_fields &fields, const char *key, const conversion &factors);

/// The board of an ipmcd that is told nothing else.
const board_description &default_board();

/// The files of the built-in boards, as they stand in ipmcd/boards.
struct built_in_board {
    const char *name;
    const char *file;
};
std::span<const built_in_board> built_in_boards();

}  // namespace ipmcd
