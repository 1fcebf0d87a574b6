"""Mutants that do the same in all that a run can do, and so do not count: (file, line of the source, before, after)."""

EQUIVALENT = {
    # The standard descriptors are open: none of ours is 0.
    ("cfgtool/system/files.cpp", "} while (file < 0 && errno == EINTR);", "<", "<="),
    ("cfgtool/sel/csv.cpp", "if (file >= 0)", ">=", ">"),
    # poll writes it; it has set no bit when it tells of none; main returns 0.
    ("cfgtool/cli/main.cpp", "{.fd = 2, .events = 0, .revents = 0}};", "0", "1"),
    ("cfgtool/cli/main.cpp", "return;", "return;", ";"),
    (
        "cfgtool/cli/main.cpp",
        "exit(0);  // whatever happened: success and failure are reported by the printed text alone",
        "exit(0);",
        ";",
    ),
    # The call is bounded by the buffer as well.
    (
        "cfgtool/system/board_profile.cpp",
        "vos_strncpy(board.mac_name, sizeof board.mac_name, "
        'name != nullptr ? name : "NIC", sizeof board.mac_name - 1);',
        "-",
        "+",
    ),
    (
        "cfgtool/cli/options.cpp",
        "vos_strncpy(current_command, sizeof current_command, dataitem, sizeof current_command - 1);",
        "-",
        "+",
    ),
    (
        "cfgtool/network/port_address.cpp",
        "const int length = int(std::min<ptrdiff_t>(slash - text, INET6_ADDRSTRLEN - 1));",
        "-",
        "+",
    ),
    # Where there is no terminal, no key is read either.
    ("cfgtool/ui/prompt.cpp", "bool is_hidden = false;", "false", "true"),
    # What is no digit before the point has ended the loop already; the check that is kept says it once more.
    ("cfgtool/ui/address.cpp", "if (!is_digit(text[at - 1]) || !is_digit(text[at + 1]))", "-", "+"),
    ("cfgtool/ui/address.cpp", "(address | mask) > mask &&    // Kept: the same once more", ">", ">="),
    # There are four destinations, not 33.
    (
        "cfgtool/snmp/trap_destination.cpp",
        "return shift < 32 ? uint16_t(uint32_t(value) << shift) : uint16_t(0);",
        "<",
        "<=",
    ),
    # Of the longer units only the whole word divides its length, and that counts as once.
    ("cfgtool/user/account.cpp", "for (size_t unit = 1; unit <= length / 2; ++unit)", "/", "*"),
    # Number and type do not matter in a search by name.
    ("cfgtool/ipmi/sdr.cpp", "return find(*iterator, {name, 0, 0});", "0", "1"),
    # No second is from 2 to 0 either.
    ("cfgtool/sel/csv.cpp", "int64_t first = 1, end = 0;  // holds for none yet", "1", "2"),
    # A time that is only compared with itself.
    (
        "cfgtool/sel/export.cpp",
        "return lstat(path, &about) == 0 ? about.st_ctim.tv_sec * INT64_C(1000000000) + about.st_ctim.tv_nsec : 0;",
        "+",
        "-",
    ),
}
