#include "inventory/facts/LaunchJobs.h"

#include "formats/PropertyList.h"
#include "inventory/facts/Bookmarks.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::size_t kMostKeys = 4096; ///< looking up a key takes as long as there are keys

[[nodiscard]] Error notUnderstood(const std::string& why)
{
    return Error{"it is not understood: " + why};
}

/// The list, whose outermost value is a dictionary of bounded size.
[[nodiscard]] Result<PropertyList> dictionaryOf(std::string bytes)
{
    auto list = PropertyList::read(std::move(bytes));
    if (list && list->root().kind() != PropertyKind::Dictionary)
        return notUnderstood("it is no dictionary");
    if (list && list->root().size() > kMostKeys)
        return notUnderstood("it has more keys than any Mac's");
    return list;
}

[[nodiscard]] std::string textOf(const PropertyValue& value)
{
    return boundedText(value.text().value_or(std::string_view()));
}

[[nodiscard]] std::string in(const PropertyValue& dictionary, std::string_view key)
{
    return dictionary.size() <= kMostKeys ? textOf(dictionary[key]) : std::string();
}

[[nodiscard]] bool isTrue(const PropertyValue& value)
{
    return value.boolean().value_or(value.integer().value_or(0) != 0);
}

[[nodiscard]] std::string twoDigits(std::int64_t number)
{
    return (number >= 0 && number < 10 ? "0" : "") + std::to_string(number);
}

/// One calendar entry: "month 1, day 3, 12:05". What is not named is every one of them.
[[nodiscard]] std::string calendarText(const PropertyValue& entry)
{
    if (entry.kind() != PropertyKind::Dictionary || entry.size() > kMostKeys)
        return {};
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
    for (const auto& [key, word] :
         {std::pair("Month", "month "), std::pair("Day", "day "), std::pair("Weekday", "weekday ")})
        if (const auto number = entry[key].integer())
            add(word + std::to_string(*number));
    const auto hour = entry["Hour"].integer();
    const auto minute = entry["Minute"].integer();
    if (hour)
        add(twoDigits(*hour) + ":" + twoDigits(minute.value_or(0)));
    else if (minute)
        add("minute " + std::to_string(*minute) + " of each hour");
    return text.empty() ? "every minute" : "at " + text;
}

void addBounded(std::vector<std::string>& parts, std::string part)
{
    if (parts.size() < kMostFactParts)
        parts.push_back(std::move(part));
    else if (parts.size() == kMostFactParts)
        parts.emplace_back("…");
}

void addEach(const PropertyValue& paths, const char* before, const char* after, StartUpItem& item)
{
    if (paths.kind() != PropertyKind::Array)
        return;
    for (const PropertyEntry& path : paths)
        addBounded(item.when, before + textOf(path.value) + after);
}

[[nodiscard]] bool holdsAnything(const PropertyValue& value)
{
    return value.size() > 0;
}

/// When a job runs, in words.
void addTimes(const PropertyValue& job, StartUpItem& item)
{
    const PropertyValue keep = job["KeepAlive"];
    if (isTrue(job["RunAtLoad"]))
        addBounded(item.when, "when loaded");
    if (isTrue(keep))
        addBounded(item.when, "kept running");
    else if (holdsAnything(keep))
        addBounded(item.when, "kept running under conditions");
    if (const auto seconds = job["StartInterval"].integer())
        addBounded(item.when, "every " + std::to_string(*seconds) + " seconds");
    const PropertyValue calendar = job["StartCalendarInterval"];
    if (calendar.kind() == PropertyKind::Dictionary)
        addBounded(item.when, calendarText(calendar));
    else if (calendar.kind() == PropertyKind::Array)
        for (const PropertyEntry& entry : calendar)
            addBounded(item.when, calendarText(entry.value));
    addEach(job["WatchPaths"], "when ", " changes", item);
    addEach(job["QueueDirectories"], "while something lies in ", "", item);
    if (isTrue(job["StartOnMount"]))
        addBounded(item.when, "when a disk is mounted");
    const auto asked = {"MachServices", "Sockets", "LaunchEvents", "inetdCompatibility"};
    if (std::any_of(asked.begin(), asked.end(),
                    [&](const char* key) { return holdsAnything(job[key]); }))
        addBounded(item.when, "when asked for");
}

[[nodiscard]] std::string_view lastName(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

void addProgram(const PropertyValue& job, StartUpItem& item)
{
    item.programText = in(job, "Program");
    if (item.programText.empty())
        item.programText = in(job, "BundleProgram");
    bool first = true;
    for (const PropertyEntry& argument : job["ProgramArguments"]) {
        std::string text = textOf(argument.value);
        // The first one is the program's own name, if it is not the program itself.
        const bool isProgram =
            first && (item.programText.empty() || lastName(text) == lastName(item.programText));
        if (item.programText.empty())
            item.programText = std::move(text);
        else if (!isProgram)
            addBounded(item.arguments, std::move(text));
        first = false;
        if (item.arguments.size() > kMostFactParts)
            break;
    }
}

[[nodiscard]] std::string pathOfItem(const PropertyValue& item)
{
    const std::string path = pathOfAlias(item["Alias"].data().value_or(std::string_view()));
    return path.empty() ? pathOfBookmark(item["Bookmark"].data().value_or(std::string_view()))
                        : path;
}

} // namespace

Result<StartUpItem> readLaunchJob(std::string bytes)
{
    const auto list = dictionaryOf(std::move(bytes));
    if (!list)
        return list.error();
    const PropertyValue job = list->root();
    StartUpItem item;
    item.label = in(job, "Label");
    addProgram(job, item);
    if (item.label.empty() && item.programText.empty())
        return notUnderstood("it names neither a job nor a program");
    addTimes(job, item);
    item.runsAs = in(job, "UserName");
    if (const PropertyValue disabled = job["Disabled"])
        item.state = isTrue(disabled) ? OnOff::Off : OnOff::On;
    return item;
}

Result<std::vector<std::pair<std::string, bool>>> readDisabledJobs(std::string bytes)
{
    const auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    if (list->root().kind() != PropertyKind::Dictionary)
        return notUnderstood("it is no dictionary");
    std::vector<std::pair<std::string, bool>> jobs;
    std::size_t length = 0;
    for (const PropertyEntry& entry : list->root()) {
        const std::string label = boundedText(entry.key);
        length += label.size();
        if (jobs.size() == kMostFactsOfASource || length > kMostFactBytes)
            return notUnderstood("it holds more than any Mac's");
        // Up to 10.9 the answer stood in a dictionary of its own.
        const PropertyValue inside =
            entry.value.size() <= kMostKeys ? entry.value["Disabled"] : PropertyValue();
        if (const auto off = inside ? inside.boolean() : entry.value.boolean())
            jobs.emplace_back(label, *off);
    }
    return jobs;
}

Result<ReadFacts<StartUpItem>> readLoginItems(std::string bytes)
{
    const auto list = dictionaryOf(std::move(bytes));
    if (!list)
        return list.error();
    ReadFacts<StartUpItem> found;
    const PropertyValue session = list->root()["SessionItems"];
    if (session.size() > kMostKeys)
        return notUnderstood("it has more keys than any Mac's");
    for (const PropertyEntry& entry : session["CustomListItems"]) {
        if (entry.value.kind() != PropertyKind::Dictionary || entry.value.size() > kMostKeys)
            return notUnderstood("an item is no dictionary");
        StartUpItem item;
        item.kind = StartUpKind::LoginItem;
        item.label = in(entry.value, "Name");
        item.programText = pathOfItem(entry.value);
        const PropertyValue properties = entry.value["CustomItemProperties"];
        item.hidden = properties.size() <= kMostKeys &&
                      isTrue(properties["com.apple.LSSharedFileList.ItemIsHidden"]);
        item.when.emplace_back("at login");
        if (!pryvane::addBounded(found, std::move(item)))
            break;
    }
    return found;
}

Result<ReadFacts<StartUpItem>> readLoginHooks(std::string bytes)
{
    const auto list = dictionaryOf(std::move(bytes));
    if (!list)
        return list.error();
    ReadFacts<StartUpItem> found;
    for (const auto& [key, when] :
         {std::pair("LoginHook", "at every login"), std::pair("LogoutHook", "at every logout")}) {
        if (!list->root()[key].text())
            continue;
        StartUpItem item;
        item.kind = StartUpKind::Hook;
        item.label = key;
        item.programText = in(list->root(), key);
        item.runsAs = "root";
        item.when.emplace_back(when);
        found.entries.push_back(std::move(item));
    }
    for (const PropertyEntry& entry : list->root()["AutoLaunchedApplicationDictionary"]) {
        StartUpItem item;
        item.kind = StartUpKind::LoginItem;
        item.programText = in(entry.value, "Path");
        item.label = lastName(item.programText);
        item.hidden = entry.value.size() <= kMostKeys && isTrue(entry.value["Hide"]);
        item.when.emplace_back("at login");
        if (!pryvane::addBounded(found, std::move(item)))
            break;
    }
    return found;
}

Result<ReadFacts<StartUpItem>> readEventRules(std::string bytes)
{
    const auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    if (list->root().kind() != PropertyKind::Array)
        return notUnderstood("it is no list of rules");
    ReadFacts<StartUpItem> found;
    for (const PropertyEntry& rule : list->root()) {
        if (rule.value.size() > kMostKeys)
            return notUnderstood("a rule has more keys than any Mac's");
        for (const PropertyEntry& action : rule.value["actions"]) {
            if (in(action.value, "command").empty())
                continue;
            StartUpItem item;
            item.kind = StartUpKind::EventRule;
            item.label = in(rule.value, "name");
            item.programText = in(action.value, "command");
            item.runsAs = in(action.value, "user");
            for (const PropertyEntry& argument : action.value["arguments"]) {
                addBounded(item.arguments, textOf(argument.value));
                if (item.arguments.size() > kMostFactParts)
                    break;
            }
            addEach(rule.value["eventTypes"], "at the event ", "", item);
            if (const PropertyValue enabled = rule.value["enabled"])
                item.state = isTrue(enabled) ? OnOff::On : OnOff::Off;
            if (!pryvane::addBounded(found, std::move(item)))
                return found;
        }
    }
    return found;
}

Result<ReadFacts<StartUpItem>> readSystemExtensions(std::string bytes)
{
    const auto list = dictionaryOf(std::move(bytes));
    if (!list)
        return list.error();
    const PropertyValue extensions = list->root()["extensions"];
    if (extensions.kind() != PropertyKind::Array)
        return notUnderstood("it holds no list of extensions");
    ReadFacts<StartUpItem> found;
    for (const PropertyEntry& entry : extensions) {
        StartUpItem item;
        item.kind = StartUpKind::Extension;
        item.label = in(entry.value, "identifier");
        item.developer = in(entry.value, "teamID");
        item.programText = in(entry.value, "originPath");
        const std::string state = in(entry.value, "state");
        item.state = state == "activated_enabled"    ? OnOff::On
                     : state == "activated_disabled" ? OnOff::Off
                                                     : OnOff::NotKnown;
        if (!state.empty())
            item.when.push_back(state);
        if (!pryvane::addBounded(found, std::move(item)))
            break;
    }
    return found;
}

} // namespace pryvane
