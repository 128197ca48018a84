// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/DesktopEntry.h"

#include <QXmlStreamWriter>
#include <algorithm>
#include <initializer_list>
#include <utility>

namespace ui::native {

namespace {

/// What people know the program by.
constexpr auto ProgramTitle = "Vortigo";

/// The first line of the program's entry.
constexpr std::string_view OwnEntryMark =
    "# Written by VTM at its start. Delete this line to keep your changes.\n";

bool IsLetterOrDigit(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9');
}

bool IsOneOf(char character, std::string_view characters) {
    return characters.find(character) != std::string_view::npos;
}

/// A text to find in a file, as the MIME database has it: a backslash there begins an escape.
std::string MagicText(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        escaped += character == '\\' ? "\\\\" : std::string(1, character);
    }
    return escaped;
}

/// An element that has attributes, in this order, and nothing in it.
void WriteEmptyElement(
    QXmlStreamWriter& xml, const char* name,
    std::initializer_list<std::pair<const char*, std::string>> attributes) {
    xml.writeEmptyElement(QLatin1String(name));
    for (const auto& [key, value] : attributes) {
        xml.writeAttribute(QLatin1String(key), QString::fromStdString(value));
    }
}

/// The name of a MIME type as a part of file names.
std::string Dashed(std::string mimeType) {
    std::replace(mimeType.begin(), mimeType.end(), '/', '-');
    return mimeType;
}

} // namespace

ExecPath ExecPathOf(const Path& path) {
    ExecPath kind = ExecPath::Plain;
    for (const char character : PathText(path)) {
        if (character < ' ' || character > '~' || character == '%' || character == '=') {
            return ExecPath::Doubtful;
        }
        if (!IsLetterOrDigit(character) && !IsOneOf(character, "/._-+,:@")) {
            kind = ExecPath::Quotable;
        }
    }
    return kind;
}

std::string ExecArgument(std::string_view argument) {
    constexpr std::string_view needsQuotes = " \t\n\r\"'\\><~|&;$*?#()`";
    constexpr std::string_view needsBackslash = "\"`$\\";
    const bool isQuoted = argument.empty() || argument.find_first_of(needsQuotes) != std::string_view::npos;
    std::string text;
    for (const char character : argument) {
        if (isQuoted && IsOneOf(character, needsBackslash)) {
            text += '\\';
        }
        text += character;
        if (character == '%') {
            text += '%';
        }
    }
    return isQuoted ? '"' + text + '"' : text;
}

std::string EntryValue(std::string_view text) {
    std::string value;
    for (const char character : text) {
        switch (character) {
        case '\\':
            value += "\\\\";
            break;
        case '\n':
            value += "\\n";
            break;
        case '\t':
            value += "\\t";
            break;
        case '\r':
            value += "\\r";
            break;
        case ' ':
            // A reader drops blanks at the front.
            value += value.empty() ? "\\s" : " ";
            break;
        default:
            value += character;
        }
    }
    return value;
}

std::string DesktopEntryText(const FileType& type, const Path& program) {
    // The start-up joins its arguments by one blank: that is the blank which follows the switch. With the
    // file inside the same quotes, desktops would put the quotes of a shell around it.
    const std::string_view switchText = type.switchText;
    const std::string exec = ExecArgument(PathText(program)) + ' ' +
                             ExecArgument(switchText.substr(0, switchText.size() - 1)) + " %f";
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Version=1.0\n"
           "Name=" +
           EntryValue(ProgramTitle) + "\nComment=" + EntryValue(type.description) +
           "\nExec=" + EntryValue(exec) + "\nTryExec=" + EntryValue(PathText(program)) +
           "\nIcon=" + EntryValue(Dashed(type.mimeType)) + "\nMimeType=" + EntryValue(type.mimeType) +
           ";\n"
           "NoDisplay=true\n"
           "Terminal=false\n";
}

std::string ProgramEntryText(const Path& program) {
    const std::string exec = ExecArgument(PathText(program));
    return std::string(OwnEntryMark) +
           "[Desktop Entry]\n"
           "Type=Application\n"
           "Version=1.4\n"
           "Name=" +
           EntryValue(ProgramTitle) +
           "\nGenericName=Player Name Editor\n"
           "Comment=Edit Quake and Quake2 player names, name animations and chat messages\n"
           "Exec=" +
           EntryValue(exec) + "\nTryExec=" + EntryValue(PathText(program)) +
           "\nIcon=vtm\n"
           "Terminal=false\n"
           "Categories=Game;\n"
           "Keywords=Quake;Quake2;name;player;animation;message;bind;script;\n"
           "StartupWMClass=VTM\n";
}

bool IsOwnProgramEntry(std::string_view entry) {
    return entry.starts_with(OwnEntryMark);
}

std::string DesktopEntryName(const FileType& type) {
    constexpr std::string_view prefix = "application/x-";
    const std::string& name = type.mimeType;
    return Dashed(name.starts_with(prefix) ? name.substr(prefix.size()) : name) + ".desktop";
}

std::string MimePackageText(const std::vector<FileType>& types) {
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(2);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("mime-info"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.freedesktop.org/standards/shared-mime-info"));
    for (const FileType& type : types) {
        xml.writeStartElement(QStringLiteral("mime-type"));
        xml.writeAttribute(QStringLiteral("type"), QString::fromStdString(type.mimeType));
        xml.writeTextElement(QStringLiteral("comment"), QString::fromStdString(type.description));
        WriteEmptyElement(xml, "sub-class-of", {{"type", "text/plain"}});
        WriteEmptyElement(xml, "generic-icon", {{"name", "text-x-script"}});
        WriteEmptyElement(xml, "glob", {{"pattern", "*" + type.extension}});
        xml.writeStartElement(QStringLiteral("magic"));
        WriteEmptyElement(
            xml, "match", {{"type", "string"}, {"offset", "0"}, {"value", MagicText(type.firstLine)}});
        xml.writeEndElement();
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return text.toStdString();
}

} // namespace ui::native
