// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/Files.h"
#include "ui/Picture.h"
#include "ui/TextCharacter.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ui {

/// The system clipboard.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Clears the clipboard and puts the bytes on it as text, one Latin-1 character a byte, unchanged.
    virtual void setText(std::string_view bytes) = 0;

    /// Clears the clipboard and puts a text in UTF-8 on it.
    virtual void setUtf8(std::string_view text) = 0;

    /// Clears the clipboard and puts the picture on it.
    virtual void setPicture(const Picture& picture) = 0;

    /// The text that is on the clipboard, its first `most` characters; empty when there is none.
    [[nodiscard]] virtual std::vector<TextCharacter> text(std::size_t most) const = 0;
};

/// Plays short waves. Never blocks the caller; a sound that cannot be played is ignored.
class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;

    /// Plays a whole RIFF wave held in memory, in place of one that still plays. `wave` outlives the
    /// program's run.
    virtual void play(std::string_view wave) = 0;
};

/// The lock keys whose state mirrors the four editing modes.
enum class LockKey { Scroll, Insert, Caps, Num };

/// The keyboard's lock keys, as far as the desktop lets a program set them.
class LockKeys {
public:
    virtual ~LockKeys() = default;

    /// Sets the key's lock where the desktop allows it; never comes back as a key press.
    virtual void setLocked(LockKey key, bool locked) = 0;

    /// Whether setting this key reaches the keyboard here.
    [[nodiscard]] virtual bool canLock(LockKey key) const = 0;

    /// Sets what is called when another program has turned a lock while this one has the focus: from then on
    /// the lock is wanted as it is. An empty function ends it.
    virtual void onTurned(std::function<void(LockKey key, bool locked)> turned) = 0;
};

/// Per-user settings: text values by section and key. Read and written whole sections at a time or key by
/// key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The value, or nothing when the key is absent.
    [[nodiscard]] virtual std::optional<std::string>
    read(const std::string& section, const std::string& key) const = 0;

    virtual void write(const std::string& section, const std::string& key, const std::string& value) = 0;

    /// All keys of a section with their values, in stored (sorted) order.
    [[nodiscard]] virtual std::vector<std::pair<std::string, std::string>>
    list(const std::string& section) const = 0;

    /// Takes over what other programs have saved since. What was written here and is not saved yet stays.
    virtual void refresh() = 0;

    /// Why the store could not be read when that was last tried, if it could not.
    [[nodiscard]] virtual Status readable() const = 0;

    /// Stores what was written; the store survives a crash at any instant. Fails while the store cannot be
    /// read, since its other values would be lost.
    virtual Status save() = 0;
};

/// One script type that the desktop opens with this program. A system reads what its own way of registering
/// needs: free desktops leave out the class name, the command and icon values and the flags.
struct FileType {
    std::string extension;       ///< ".vtn"
    std::string className;       ///< "VTM_Name"
    std::string description;     ///< "Quake Name Script"
    std::string switchText;      ///< " /name ": what the start-up finds in its command line
    std::string commandValue;    ///< program path and quoted argument, as a file-type registry holds it
    std::string iconValue;       ///< program path and icon index
    std::uint32_t editFlags = 0; ///< always 0: nothing is hidden from the user
    std::string mimeType;  ///< "application/x-vtm-name"; the type's icon is called like this with dashes
    std::string firstLine; ///< what a file of the type begins with, whatever it is called
};

/// Registers script types with the desktop, for this user only. Silent; a failure changes nothing else.
class FileTypes {
public:
    virtual ~FileTypes() = default;

    /// Registers all the types, and the program itself where the desktop does not know it. Files that already
    /// hold the same are not rewritten.
    virtual void registerTypes(const std::vector<FileType>& types, const Path& program) = 0;
};

/// Hands documents to the desktop.
class Launcher {
public:
    virtual ~Launcher() = default;

    /// Asks the desktop to open the address that the shortcut file `shortcut` leads to. Returns at once;
    /// `done` is called later, on the same thread, with the result code: 33 or more is success. A system
    /// reports the codes that it can tell apart; free desktops know a few of them only.
    virtual void open(const Path& shortcut, const std::string& address, std::function<void(int)> done) = 0;
};

/// Where the program's own files lie.
class ProgramDirectory {
public:
    virtual ~ProgramDirectory() = default;

    /// The folder that the program lies in.
    [[nodiscard]] virtual Path folder() const = 0;

    /// Whether files can be made in folder().
    [[nodiscard]] virtual bool writable() const = 0;

    /// Where to read a file of that name: folder(); where that cannot be written, the user's stand-in folder
    /// first, if the file is there.
    [[nodiscard]] virtual Path toRead(const std::string& name) const = 0;

    /// Where to write a file of that name: folder() if it is writable, otherwise the user's stand-in folder,
    /// which is made when it is missing.
    [[nodiscard]] virtual Path toWrite(const std::string& name) const = 0;
};

/// Everything that the program needs of its platform; made once, by main() and by the tests.
struct Platform {
    Dialogs& dialogs;
    Files& files;
    Clipboard& clipboard;
    SoundPlayer& sounds;
    LockKeys& lockKeys;
    SettingsStore& settings;
    FileTypes& fileTypes;
    Launcher& launcher;
    ProgramDirectory& directory;
    Path stateFolder = {}; ///< where the program keeps what outlives a crash; empty: nowhere
};

} // namespace ui
