#include "hosts/linux/AutostartEntry.h"

#include "core/Escape.h"

#include <algorithm>

namespace pryvane {

namespace {

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

/// Values of the type string have escapes of their own, below whatever else they hold.
std::string stringValue(std::string_view text)
{
    std::string value;
    for (const char c : text)
        value.append(c == '\\' ? "\\\\" : std::string(1, c));
    return value;
}

std::string quotedArgument(std::string_view argument)
{
    std::string quoted = "\"";
    for (const char c : argument) {
        if (std::string_view("\"`$\\").find(c) != std::string_view::npos)
            quoted += '\\';
        if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return quoted + "\"";
}

} // namespace

Result<std::string> execValue(const std::vector<std::string>& command)
{
    std::string value;
    for (const std::string& argument : command) {
        if (!isUtf8(argument) || std::any_of(argument.begin(), argument.end(), isControl) ||
            (value.empty() && argument.find('=') != std::string::npos))
            return Error{forScreen(argument) + " cannot stand in an autostart entry; install "
                                               "Pryvane in a folder with a plainer name"};
        value.append(value.empty() ? "" : " ").append(quotedArgument(argument));
    }
    return stringValue(value);
}

Result<std::string> autostartEntry(std::string_view name, const std::vector<std::string>& command)
{
    const auto exec = execValue(command);
    if (!exec)
        return exec.error();
    // TryExec: once the program has been removed, logins pass over the entry in silence.
    return "[Desktop Entry]\nType=Application\nVersion=1.0\nName=" + stringValue(name) +
           "\nComment=Starts " + stringValue(name) + " at login\nExec=" + *exec +
           "\nTryExec=" + stringValue(command.front()) +
           "\nTerminal=false\nNoDisplay=true\nX-GNOME-Autostart-enabled=true\n";
}

} // namespace pryvane
