#include "player/Typing.h"

#include "runtime/TextCompare.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tallybrook::person {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Where the character before the place begins.
std::size_t oneBack(std::string_view text, std::size_t at) {
    while (at > 0 && isContinuation(text[--at])) {
    }
    return at;
}

/// Where the character behind the place ends.
std::size_t oneOn(std::string_view text, std::size_t at) {
    while (at < text.size() && ++at < text.size() && isContinuation(text[at])) {
    }
    return at;
}

/// Where the line begins that the place is in. In a box of one line all is one.
std::size_t lineBegin(const TextBox& box, std::size_t at) {
    if (!box.options().multiline || at == 0)
        return 0;
    return box.text().rfind('\n', at - 1) + 1;  // 0 in the first line
}

/// Where that line ends.
std::size_t lineEnd(const TextBox& box, std::size_t at) {
    const std::size_t end = box.text().size();
    return box.options().multiline ? std::min(box.text().find('\n', at), end) : end;
}

/// Left, Right, Home and End. Where all is selected, the caret stands at its end, and Left leads to its
/// beginning.
bool moveCaret(TextBox& box, const Key& key) {
    const std::string& text = box.text();
    const bool isSelected = box.isAllSelected();
    const std::size_t caret = isSelected ? text.size() : box.caret();
    if (key.name == "Home")
        box.moveCaret(lineBegin(box, caret));
    else if (key.name == "End")
        box.moveCaret(lineEnd(box, caret));
    else if (key.name == "Left")
        box.moveCaret(isSelected ? 0 : oneBack(text, caret));
    else if (key.name == "Right")
        box.moveCaret(oneOn(text, caret));
    else
        return false;
    return true;
}

/// Enters the text with a part of it put in the place of another, and the caret behind that part.
void replacePart(TextBox& box, std::size_t from, std::size_t to, std::string_view part) {
    std::string text = box.text();
    text.replace(from, to - from, part);
    const int limit = box.options().maxLength;
    if (!part.empty() && limit != 0 && characterCount(text) > static_cast<std::size_t>(limit))
        return;
    box.enter(text);
    if (box.text() == text)
        box.moveCaret(from + part.size());
}

bool deleteCharacter(TextBox& box, const Key& key) {
    if (key.name != "Backspace" && key.name != "Delete")
        return false;
    const std::size_t caret = box.caret();
    if (box.isAllSelected())
        replacePart(box, 0, box.text().size(), {});
    else if (key.name == "Backspace")
        replacePart(box, oneBack(box.text(), caret), caret, {});
    else
        replacePart(box, caret, oneOn(box.text(), caret), {});
    return true;
}

/// What a key writes into a box; nothing if it writes nothing.
std::string writtenBy(const TextBox& box, const Key& key) {
    if (key.name == "Return" || key.name == "Enter")
        return box.options().multiline ? "\n" : "";
    if (key.name == "Space")
        return " ";
    const bool isCharacter = key.name.size() == 1 || (static_cast<unsigned char>(key.name[0]) & 0x80U) != 0;
    return isCharacter ? box.typable(key.name) : std::string();
}

bool insertCharacter(TextBox& box, const Key& key) {
    const std::string written = writtenBy(box, key);
    if (written.empty())
        return false;
    const bool isSelected = box.isAllSelected();
    replacePart(box, isSelected ? 0 : box.caret(), isSelected ? box.text().size() : box.caret(), written);
    return true;
}

}  // namespace

bool typeKey(TextBox& box, const Key& key) {
    if (key.alt || key.control)
        return false;
    return moveCaret(box, key) || deleteCharacter(box, key) || insertCharacter(box, key);
}

}  // namespace tallybrook::person
