/// Users, their passwords and their access on the LAN channel (IPMI 2.0). They are also the accounts of the
/// controller's own system: its account 500 + N is user N. The maker's additions check a user's password, keep who
/// fails that too often from trying again, and have rules for what a password is made of.
#include "ipmcd/controller.h"
#include "ipmcd/families/account_links.h"
#include "ipmcd/families/password.h"
#include "ipmcd/text.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace ipmcd
{

namespace
{

constexpr uint8_t user_count = 17;
constexpr uint8_t fixed_name_count = 1;  // user 1, whose name is empty for good
constexpr uint8_t lan_channel = 1;
constexpr uint8_t present_channel = 0x0E;  // "the one this request came by"
constexpr size_t name_size = 16;
constexpr size_t short_password_size = 16, long_password_size = 20;  // on the wire, filled up with zeros

constexpr unsigned failures_that_lock = 5;
constexpr std::chrono::minutes lock_time{5};

// IPMI 2.0, Set User Password
constexpr completion password_differs{0x80}, other_password_size{0x81};
// The maker's: of the password rules, of checking a password, of unlocking
constexpr completion against_the_rules{0x84}, wrong_password{0x82}, user_is_locked{0x83}, not_unlocked{0x85};

/// Of Set User Password, bits 1 to 0.
enum class password_operation : uint8_t { disable, enable, set, test };
constexpr const char *operation_words[] = {"disable", "enable", "set", "test"};

enum privilege : uint8_t { callback = 1, user = 2, operator_ = 3, administrator = 4, oem_level = 5, no_access = 15 };

/// Wrong passwords that somebody gave for a user. They are counted, and the user is locked, for each account of the
/// machine that asks: nobody can lock out a user for others.
struct guesses {
    unsigned wrong = 0;  // in a row
    std::chrono::milliseconds locked_until{0};
};
/// An ordinary account may have thousands of further ones from here on, for its containers: all these count as one.
constexpr uint32_t first_spare_account = 0x10000;

struct account {
    std::string name;
    std::string password_hash{};  // empty: has no password, and none fits
    bool short_password = false;  // it was set as one of 16 bytes
    uint8_t privilege = no_access;
    bool enabled = false;
    bool callback_only = false;
    bool link_authentication = false;
    bool messaging = false;
    uint8_t session_limit = 0;  // 0 = as many as the controller can
    guesses of_everyone{};      // what a tester sets
    std::map<uint32_t, guesses> of_sender{};
};

using accounts = std::array<account, user_count>;

/// The passwords of the factory are no secret: hashes of Zentro-admin1, Zentro-operator1 and so on stand here, so that
/// none has to be made at every start.
account of_factory(const char *name, const char *password_hash, privilege limit)
{
    return {.name = name,
            .password_hash = password_hash,
            .privilege = limit,
            .enabled = true,
            .messaging = limit != no_access};
}

accounts factory_accounts()
{
    accounts all;
    all[1] =
        of_factory("admin", "$y$j9T$G/2.h7Fu0mG2wlWGYT56H.$WTzn46azCCrG0em5FnuSQGmxJClM54D8pV0P0qGyKe/", administrator);
    all[2] =
        of_factory("operator", "$y$j9T$uRzByd7datPcNZTsVLQag.$yFRZU9ad.16dwsHLYfjASESJGr5aJHEipSd.QMKgX.0", operator_);
    all[3] = of_factory("guest", "$y$j9T$VrtAsOrvD1sQp6wVb4Kod/$c8vYsi63DvF.KYwJdiKwXjq.1M5nZSIEPHbPg4.9Pb3", user);
    all[4] =
        of_factory("locked", "$y$j9T$HJm2TMkDpbKJ0T33PxVYO1$/uZ5ipnoiOrvias9AWbzOESsBbvOAi5bh3Wg6pxPcH6", no_access);
    return all;
}

/// What answers a password that is tried.
struct guess_answers {
    completion wrong;
    bool with_enterprise = false;  // in a good answer
};

class users final : public family
{
public:
    explicit users(controller &owner) : clock(owner.timers()), links(owner.shared<account_links>())
    {
        links.is_user = [this](const std::string &name) { return find_named(name) != nullptr; };
    }

    const char *name() const override { return "users"; }
    std::span<const command> commands() const override;
    void reset() override;
    void restart() override;
    json to_json() const override;
    json shown() const override;
    void from_json(const json &json) override;

private:
    static const command table[];

    completion get_access(byte_reader &request, byte_writer &answer);
    completion set_access(byte_reader &request, byte_writer &answer);
    completion get_name(byte_reader &request, byte_writer &answer);
    completion set_name(byte_reader &request, byte_writer &answer);
    completion change_password(byte_reader &request, uint32_t sender, slow_answer &slow);
    completion check_password(byte_reader &request, uint32_t sender, slow_answer &slow);
    completion unlock(byte_reader &request, byte_writer &answer);
    completion switch_rules(byte_reader &request, byte_writer &answer);

    completion find(uint8_t id, account *&found);
    account *find_named(const std::string &name);
    bool is_taken(const std::string &name, const account &except) const;

    completion enable(account &who);
    completion take_password(account &who, const std::string &password, bool is_short, slow_answer &slow);
    completion try_password(account &who, const std::string &password, uint32_t sender, const guess_answers &answers,
                            slow_answer &slow);
    bool is_locked(const guesses &made) const { return clock.now() < made.locked_until; }
    std::chrono::milliseconds locked_until(bool locked) const
    {
        return locked ? clock.now() + lock_time : std::chrono::milliseconds(0);
    }
    bool is_locked(const account &who, uint32_t sender) const;
    bool is_locked_for_anyone(const account &who) const;
    void count_wrong(account &who, uint32_t sender);
    json account_to_json(const account &who) const;
    void read_guesses(json_fields &fields, guesses &made) const;
    void read_senders(json_fields &fields, const std::string &where, account &who) const;
    void read_account(const json &json, const std::string &where, account &who) const;

    scheduler &clock;
    account_links &links;
    accounts state = factory_accounts();
    bool rules_apply = true;
};

void forget_guesses(account &who)
{
    who.of_everyone = {};
    who.of_sender.clear();
}

template <typename change>
void for_everyone(account &who, change apply)
{
    apply(who.of_everyone);
    for (auto &[sender, made] : who.of_sender)
        apply(made);
}

void users::reset()
{
    state = factory_accounts();
    rules_apply = true;
}

void users::restart()
{
    for (account &who : state)
        forget_guesses(who);
}

bool is_privilege(uint8_t limit) { return (limit >= callback && limit <= oem_level) || limit == no_access; }

/// Bits that a request must leave 0 in a byte of which only the low ones are used.
bool is_reserved_clear(uint8_t byte, uint8_t used) { return (byte & ~used) == 0; }

completion check_channel(uint8_t channel)
{
    return channel == lan_channel || channel == present_channel ? completion::ok : completion::invalid_field;
}

completion users::find(uint8_t id, account *&found)
{
    if (!is_reserved_clear(id, 0x3F))
        return completion::invalid_field;
    if (id == 0 || id > user_count)
        return completion::out_of_range;
    found = &state[id - 1U];
    return completion::ok;
}

/// The user of that name, or null. No user is found by an empty name.
account *users::find_named(const std::string &name)
{
    const auto found = std::ranges::find(state, name, &account::name);
    return name.empty() || found == state.end() ? nullptr : &*found;
}

bool users::is_taken(const std::string &name, const account &except) const
{
    return std::any_of(state.begin(), state.end(),
                       [&](const account &other) { return &other != &except && other.name == name; });
}

completion users::get_access(byte_reader &request, byte_writer &answer)
{
    if (const completion refused = check_channel(request.u8()); refused != completion::ok)
        return refused;
    account *who = nullptr;
    if (const completion refused = find(request.u8(), who); refused != completion::ok)
        return refused;
    const auto enabled = std::count_if(state.begin(), state.end(), [](const account &any) { return any.enabled; });
    constexpr uint8_t is_enabled = 0x40, is_disabled = 0x80;
    const int access = who->callback_only << 6 | who->link_authentication << 5 | who->messaging << 4 | who->privilege;
    answer.u8(user_count).u8(uint8_t((who->enabled ? is_enabled : is_disabled) | enabled));
    answer.u8(fixed_name_count).u8(uint8_t(access));
    return completion::ok;
}

completion users::set_access(byte_reader &request, byte_writer &)
{
    const uint8_t access = request.u8();
    if (const completion refused = check_channel(access & 0x0F); refused != completion::ok)
        return refused;
    account *who = nullptr;
    if (const completion refused = find(request.u8(), who); refused != completion::ok)
        return refused;
    const uint8_t limit = request.u8();
    const bool with_session_limit = request.left() == 1;
    const uint8_t session_limit = request.u8();
    if (!is_privilege(limit) || !is_reserved_clear(session_limit, 0x0F))
        return completion::invalid_field;
    if (access & 0x80) {
        who->callback_only = access & 0x40;
        who->link_authentication = access & 0x20;
        who->messaging = access & 0x10;
    }
    who->privilege = limit;
    if (with_session_limit)
        who->session_limit = session_limit;
    return completion::ok;
}

completion users::get_name(byte_reader &request, byte_writer &answer)
{
    account *who = nullptr;
    if (const completion refused = find(request.u8(), who); refused != completion::ok)
        return refused;
    for (size_t i = 0; i < name_size; i++)
        answer.u8(i < who->name.size() ? uint8_t(who->name[i]) : uint8_t{0});
    return completion::ok;
}

/// The characters in front of the first zero byte, as names and passwords end on the wire.
std::string read_padded(byte_reader &data, size_t size)
{
    const auto bytes = data.bytes(size);
    return {bytes.begin(), std::find(bytes.begin(), bytes.end(), 0)};
}

bool is_printable(char c) { return c >= 0x20 && c <= 0x7E; }

/// An empty name gives the slot free: whoever is named there next starts disabled and without access.
completion users::set_name(byte_reader &request, byte_writer &)
{
    account *who = nullptr;
    if (const completion refused = find(request.u8(), who); refused != completion::ok)
        return refused;
    const std::string name = read_padded(request, name_size);
    if (who == state.data() || !std::all_of(name.begin(), name.end(), is_printable))
        return completion::invalid_field;
    if (name != who->name && !who->name.empty() && who->name == links.trap_user)
        return completion::is_trap_user;
    if (name.empty()) {
        *who = {};
        return completion::ok;
    }
    if (is_taken(name, *who))
        return completion::invalid_field;
    who->name = name;
    return completion::ok;
}

// Passwords ----------------------------------------------------------------------------------------------------------

/// Whoever could never prove to be himself is not let in: he needs a password first.
completion users::enable(account &who)
{
    if (who.password_hash.empty())
        return against_the_rules;
    who.enabled = true;
    return completion::ok;
}

/// By the time the hash is made the slot may be somebody else's.
completion users::take_password(account &who, const std::string &password, bool is_short, slow_answer &slow)
{
    if (password.empty() || (rules_apply && !is_good_password(password, who.name)))
        return against_the_rules;
    const auto hash = std::make_shared<std::string>();
    slow.work = [hash, password] { *hash = hash_password(password); };
    slow.finish = [&who, name = who.name, hash, is_short](byte_writer &) {
        if (who.name != name)
            return completion::not_present;
        who.password_hash = *hash;
        who.short_password = is_short;
        return completion::ok;
    };
    return completion::ok;
}

bool users::is_locked(const account &who, uint32_t sender) const
{
    const auto found = who.of_sender.find(sender);
    return is_locked(who.of_everyone) || (found != who.of_sender.end() && is_locked(found->second));
}

bool users::is_locked_for_anyone(const account &who) const
{
    return is_locked(who.of_everyone) ||
           std::ranges::any_of(who.of_sender, [this](const auto &one) { return is_locked(one.second); });
}

void users::count_wrong(account &who, uint32_t sender)
{
    guesses &made = who.of_sender.try_emplace(sender, who.of_everyone).first->second;
    if (++made.wrong < failures_that_lock)
        return;
    made = {.wrong = 0, .locked_until = locked_until(true)};
}

/// Several may be tried at the same time: none says more than that the user is locked once he is.
completion users::try_password(account &who, const std::string &password, uint32_t sender, const guess_answers &answers,
                               slow_answer &slow)
{
    const auto fits = std::make_shared<bool>(false);
    const std::string hash = who.password_hash;
    slow.work = [fits, password, hash] { *fits = !hash.empty() && is_password(password, hash); };
    slow.finish = [this, &who, fits, hash, sender, answers](byte_writer &answer) {
        if (is_locked(who, sender))
            return user_is_locked;
        if (who.password_hash != hash)  // it was changed meanwhile
            return answers.wrong;
        if (!*fits) {
            count_wrong(who, sender);
            return answers.wrong;
        }
        who.of_sender.erase(sender);
        who.of_everyone.wrong = 0;
        if (answers.with_enterprise)
            answer.bytes(oem_iana);
        return completion::ok;
    };
    return completion::ok;
}

uint32_t sender_of(uint32_t machine_account) { return std::min(machine_account, first_spare_account); }

/// Enabling and disabling may come with a password, which nobody looks at.
completion users::change_password(byte_reader &request, uint32_t sender, slow_answer &slow)
{
    constexpr uint8_t is_long = 0x80;
    const uint8_t id = request.u8();
    const bool is_short = (id & is_long) == 0;
    account *who = nullptr;
    if (const completion refused = find(id & uint8_t(~is_long), who); refused != completion::ok)
        return refused;
    const auto wanted = password_operation(request.u8());
    if (wanted > password_operation::test)
        return completion::invalid_field;
    const size_t size = is_short ? short_password_size : long_password_size;
    const bool may_do_without = wanted < password_operation::set;
    if (request.left() != size && !(may_do_without && request.left() == 0))
        return completion::length_invalid;
    if (who->name.empty())
        return completion::not_present;
    switch (wanted) {
    case password_operation::disable:
        who->enabled = false;
        return completion::ok;
    case password_operation::enable:
        return enable(*who);
    case password_operation::set:
        return take_password(*who, read_padded(request, size), is_short, slow);
    case password_operation::test:
        break;
    }
    if (is_locked(*who, sender_of(sender)))
        return user_is_locked;
    if (is_short != who->short_password)
        return other_password_size;
    return try_password(*who, read_padded(request, size), sender_of(sender), {.wrong = password_differs}, slow);
}

/// A name that nobody has, a user who is disabled or has no password, and a wrong password look alike from outside.
completion users::check_password(byte_reader &request, uint32_t sender, slow_answer &slow)
{
    account *const who = find_named(read_padded(request, name_size));
    if (!who || !who->enabled)
        return wrong_password;
    if (is_locked(*who, sender_of(sender)))
        return user_is_locked;
    return try_password(*who, read_padded(request, long_password_size), sender_of(sender),
                        {.wrong = wrong_password, .with_enterprise = true}, slow);
}

/// For everyone whom he is locked for.
completion users::unlock(byte_reader &request, byte_writer &answer)
{
    account *const who = find_named(read_padded(request, name_size));
    if (!who || !is_locked_for_anyone(*who))
        return not_unlocked;
    forget_guesses(*who);
    answer.bytes(oem_iana);
    return completion::ok;
}

completion users::switch_rules(byte_reader &request, byte_writer &answer)
{
    const uint8_t wanted = request.u8();
    if (wanted > 1)
        return completion::invalid_field;
    rules_apply = wanted == 1;
    answer.bytes(oem_iana);
    return completion::ok;
}

// The state ----------------------------------------------------------------------------------------------------------

/// By one account, of all that tried.
unsigned most_wrong(const account &who)
{
    unsigned most = who.of_everyone.wrong;
    for (const auto &[sender, made] : who.of_sender)
        most = std::max(most, made.wrong);
    return most;
}

json users::account_to_json(const account &who) const
{
    json senders = json::object();
    for (const auto &[sender, made] : who.of_sender)
        if (made.wrong != 0 || is_locked(made))
            senders[std::to_string(sender)] = {{"failed_checks", made.wrong}, {"locked", is_locked(made)}};
    return {{"name", who.name},
            {"privilege", who.privilege},
            {"enabled", who.enabled},
            {"callback_only", who.callback_only},
            {"link_authentication", who.link_authentication},
            {"messaging", who.messaging},
            {"session_limit", who.session_limit},
            {"failed_checks", most_wrong(who)},
            {"locked", is_locked_for_anyone(who)},
            {"senders", senders},
            {"short_password", who.short_password},
            {"password_hash", who.password_hash}};
}

json users::to_json() const
{
    json all{{"password_rules", rules_apply}};
    for (size_t i = 0; i < state.size(); i++)
        all[std::to_string(i + 1)] = account_to_json(state[i]);
    return all;
}

json users::shown() const
{
    json all = to_json();
    for (auto &[key, part] : all.items()) {
        if (!part.is_object())
            continue;
        part["has_password"] = !part.at("password_hash").get<std::string>().empty();
        part.erase("password_hash");
    }
    return all;
}

/// The password as its hash, or, in a state that a person writes, as it is; that one is hashed at once.
void read_password(json_fields &fields, account &who)
{
    fields.text("password_hash", who.password_hash, longest_password_hash);
    if (!who.password_hash.empty() && !is_password_hash(who.password_hash))
        fields.refuse("password_hash", "a hash as crypt(3) makes them is needed here, or nothing");
    fields.boolean("short_password", who.short_password);
    std::string plain;
    fields.text("password", plain, who.short_password ? short_password_size : long_password_size);
    if (!plain.empty())
        who.password_hash = hash_password(plain);
}

/// A lock that is loaded runs for its whole time.
void users::read_guesses(json_fields &fields, guesses &made) const
{
    bool locked = is_locked(made);
    fields.boolean("locked", locked);
    if (locked != is_locked(made))
        made.locked_until = locked_until(locked);
    fields.number("failed_checks", made.wrong, 0, failures_that_lock - 1);
}

void users::read_senders(json_fields &fields, const std::string &where, account &who) const
{
    const json *const all = fields.find("senders");
    if (!all)
        return;
    if (!all->is_object())
        fields.refuse("senders", "an object is needed here");
    std::map<uint32_t, guesses> wanted;
    for (const auto &[key, part] : all->items()) {
        uint32_t sender = 0;
        const auto [stop, error] = std::from_chars(key.data(), key.data() + key.size(), sender);
        if (error != std::errc{} || stop != key.data() + key.size() || sender > first_spare_account)
            fields.refuse("senders", text("the number of an account, up to %u, is needed here", first_spare_account));
        json_fields one(part, where + "/senders/" + key);
        const auto before = who.of_sender.find(sender);
        guesses &made = wanted[sender];
        if (before != who.of_sender.end())
            made = before->second;
        read_guesses(one, made);
        one.done();
    }
    who.of_sender = wanted;
}

/// What is set for the user himself, and is not so for the senders taken together, is set for everyone.
void users::read_account(const json &json, const std::string &where, account &who) const
{
    json_fields fields(json, where);
    fields.text("name", who.name, name_size);
    read_senders(fields, where, who);
    const guesses before{most_wrong(who), locked_until(is_locked_for_anyone(who))};
    guesses wanted = before;
    read_guesses(fields, wanted);
    for_everyone(who, [&](guesses &made) {
        if (wanted.wrong != before.wrong)
            made.wrong = wanted.wrong;
        if (wanted.locked_until != before.locked_until)
            made.locked_until = wanted.locked_until;
    });
    read_password(fields, who);
    fields.number("privilege", who.privilege, callback, no_access);
    fields.boolean("enabled", who.enabled);
    fields.boolean("callback_only", who.callback_only);
    fields.boolean("link_authentication", who.link_authentication);
    fields.boolean("messaging", who.messaging);
    fields.number("session_limit", who.session_limit, 0, 15);
    fields.done();
    if (!is_privilege(who.privilege))
        fields.refuse("privilege", "a number from 1 to 5, or 15 for no access, is needed here");
}

void users::from_json(const json &json)
{
    accounts wanted = state;
    bool wanted_rules = rules_apply;
    json_fields fields(json, "/users");
    fields.boolean("password_rules", wanted_rules);
    for (size_t i = 0; i < wanted.size(); i++) {
        const std::string id = std::to_string(i + 1);
        if (const auto *part = fields.find(id.c_str()))
            read_account(*part, "/users/" + id, wanted[i]);
    }
    fields.done();
    if (!wanted[0].name.empty())
        fields.refuse("1/name", "user 1 has no name");
    state = wanted;
    rules_apply = wanted_rules;
}

// Words --------------------------------------------------------------------------------------------------------------

std::string words_of_privilege(uint8_t limit)
{
    static constexpr const char *words[] = {"level 0", "callback", "user", "operator", "administrator", "OEM level"};
    if (limit == no_access)
        return "no access";
    return limit < std::size(words) ? words[limit] : text("level %u", limit);
}

std::string words_of_channel_and_user(byte_reader &data)
{
    const uint8_t channel = data.u8() & 0x0F;
    return text("channel %u, user %u", channel, data.u8());
}

std::string words_of_access(byte_reader &data)
{
    const std::string whom = words_of_channel_and_user(data);
    return whom + ", " + words_of_privilege(data.u8());
}

std::string words_of_access_answer(byte_reader &data)
{
    const uint8_t slots = data.u8();
    const uint8_t enabled = data.u8();
    data.u8();
    const std::string limit = words_of_privilege(data.u8() & 0x0F);
    return text("%s, %s; %u users, %u enabled", limit.c_str(), enabled & 0x40 ? "enabled" : "disabled", slots,
                enabled & 0x3F);
}

std::string words_of_user(byte_reader &data) { return text("user %u", data.u8()); }

std::string words_of_name(byte_reader &data) { return quoted(read_padded(data, name_size)); }

std::string words_of_user_and_name(byte_reader &data)
{
    const std::string whom = words_of_user(data);
    return whom + ", " + words_of_name(data);
}

/// "user 3, set"
std::string words_of_password(byte_reader &data)
{
    const uint8_t id = data.u8() & 0x7F;
    const uint8_t operation = data.u8();
    const bool known = operation < std::size(operation_words);
    return text("user %u, ", id) + (known ? operation_words[operation] : text("operation %u", operation));
}

std::string words_of_switch(byte_reader &data)
{
    const uint8_t wanted = data.u8();
    return wanted == 0 ? "off" : wanted == 1 ? "on" : text("%u", wanted);
}

const command users::table[] = {
    {.netfn = netfn::app,
     .number = 0x43,
     .name = "Set User Access",
     .length = {3, 4},
     .run = call<&users::set_access>,
     .request_words = words_of_access},
    {.netfn = netfn::app,
     .number = 0x44,
     .name = "Get User Access",
     .length = {2, 2},
     .run = call<&users::get_access>,
     .request_words = words_of_channel_and_user,
     .answer_words = words_of_access_answer},
    {.netfn = netfn::app,
     .number = 0x45,
     .name = "Set User Name",
     .length = {1 + name_size, 1 + name_size},
     .run = call<&users::set_name>,
     .request_words = words_of_user_and_name},
    {.netfn = netfn::app,
     .number = 0x46,
     .name = "Get User Name",
     .length = {1, 1},
     .run = call<&users::get_name>,
     .request_words = words_of_user,
     .answer_words = words_of_name},
    {.netfn = netfn::app,
     .number = 0x47,
     .name = "Set User Password",
     .length = {2, 2 + long_password_size},
     .run_slowly = call_slowly<&users::change_password>,
     .request_words = words_of_password,
     .open = open_first<2>},
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x11, 0x00),
     .name = "Check User Password",
     .length = {name_size + long_password_size, name_size + long_password_size},
     .run_slowly = call_slowly<&users::check_password>,
     .request_words = words_of_name,
     .open = open_first<name_size>},
    {.netfn = netfn::oem,
     .number = 0x91,
     .lead = oem(0x11, 0x80),
     .name = "Unlock User",
     .length = {name_size + long_password_size, name_size + long_password_size},  // a password that nobody looks at
     .run = call<&users::unlock>,
     .request_words = words_of_name,
     .open = open_first<name_size>},
    {.netfn = netfn::oem,
     .number = 0x93,
     .lead = oem(0x22),
     .name = "Set Password Rules",
     .length = {1, 1},
     .run = call<&users::switch_rules>,
     .request_words = words_of_switch},
};

std::span<const command> users::commands() const { return table; }

}  // namespace

std::unique_ptr<family> make_users(controller &owner) { return std::make_unique<users>(owner); }

}  // namespace ipmcd
