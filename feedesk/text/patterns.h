#ifndef FEEDESK_TEXT_PATTERNS_H
#define FEEDESK_TEXT_PATTERNS_H

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "cost/pattern.h"
#include "feedesk/text/folding.h"
#include "standalone/text/utf8.h"

namespace feedesk {

// A person's pattern is compared with the texts that name a thing, such as its code and its name; '*' matches any text,
// also the empty one.

/// The items with a text that is like the pattern as it is written, in their order. `textsOf(item)` gives an item's
/// texts, which are UTF-8. A pattern that is not UTF-8 is like none of them: its bytes could match parts of characters.
template <class Item, class TextsOf>
std::vector<Item> itemsWrittenLike(const std::vector<Item>& items, const std::string& pattern, const TextsOf& textsOf) {
    std::vector<Item> found;
    if (!standalone::isUtf8(pattern)) {
        return found;
    }
    std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&](const Item& item) {
        const auto own = textsOf(item);
        return std::any_of(own.begin(), own.end(),
                           [&](const auto& text) { return cost::matchesPattern(text, pattern); });
    });
    return found;
}

/// The same, or, when that finds none, with both folded. `foldedTextsOf(item)` gives an item's texts folded.
template <class Item, class TextsOf, class FoldedTextsOf>
std::vector<Item> itemsLike(const std::vector<Item>& items, const std::string& pattern, const TextsOf& textsOf,
                            const FoldedTextsOf& foldedTextsOf) {
    std::vector<Item> found = itemsWrittenLike(items, pattern, textsOf);
    const std::string foldedPattern = folded(pattern);
    return found.empty() && !foldedPattern.empty() ? itemsWrittenLike(items, foldedPattern, foldedTextsOf) : found;
}

/// The same for items that do not keep their texts folded.
template <class Item, class TextsOf>
std::vector<Item> itemsLike(const std::vector<Item>& items, const std::string& pattern, const TextsOf& textsOf) {
    return itemsLike(items, pattern, textsOf, [&textsOf](const Item& item) {
        std::vector<std::string> texts;
        for (const auto& text : textsOf(item)) {
            texts.push_back(folded(text));
        }
        return texts;
    });
}

/// The pattern for texts that hold `text` anywhere; empty when there is nothing to look for.
std::string widened(const std::string& text);

/// What to write, a pattern or an option with one, to find more: a part of a sentence.
std::string insideAdvice(const std::string& whatToWrite, const std::string& whatIsSearched = "codes and names");

}  // namespace feedesk

#endif  // FEEDESK_TEXT_PATTERNS_H
