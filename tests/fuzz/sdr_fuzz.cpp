/// The reader of sensor data records and the conversion, against a controller that answers anything. The reader is
/// compiled in, so that each run begins with nothing read.
#include "ipmi/sdr.cpp"

#include "ipmi/conversion.h"
#include "tests/fuzz/platform.h"

static void forget_all()
{
    while (first_kept != nullptr) {
        sdr_record *const next = first_kept->next;
        free(first_kept->body);
        free(first_kept);
        first_kept = next;
    }
    end_of_kept = &first_kept;
    free(iterator);
    iterator = nullptr;
    use_device_sdrs = asked_in_vain = false;
    sdr_read_size = 255;
    std::fill(std::begin(headers_read), std::end(headers_read), uint8_t(0));
}

/// What every caller may count on.
static void use(const sdr_record *record, double value)
{
    if (record == nullptr)
        return;
    const std::string_view name = record->id_string();
    check(name.size() <= 31 && name.find('\0') == name.npos);
    check(record->body[record->length] == 0);
    check(record->at(record->length) == 0);
    const double raw = sensor_real_to_raw(*record, value);
    if (raw_in_range(*record, raw) && raw >= 0)
        check(raw <= 255 && raw_byte(raw) == uint8_t(raw));
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    begin(data, size);
    sdr_verbosity = input.u8() % 5;
    const double value = (input.u8() - 128) * (input.flag() ? 0.37 : 1e6);
    const std::string name = input.text();
    use(sdr_find_by_name(name.c_str()), value);
    use(sdr_find_by_name("CPU Temp"), value);
    use(sdr_find_by_number(input.u8(), input.u8()), value);
    for (const sdr_record *record = first_kept; record != nullptr; record = record->next)
        use(record, value);
    forget_all();
    return 0;
}
