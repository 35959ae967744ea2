#include "api/command/ParsedArgs.h"
#include "api/command/WordValue.h"
#include "engine/Scene.h"

namespace host {

const FlagUse* ParsedArgs::use(const char* flag, unsigned int i) const {
    const int index = flag ? syntax.findFlag(flag) : -1;
    if (index < 0 || static_cast<std::size_t>(index) >= usesOfFlag.size()) return nullptr;
    const std::vector<unsigned int>& positions = usesOfFlag[static_cast<std::size_t>(index)];
    return i < positions.size() ? &uses[positions[i]] : nullptr;
}

unsigned int ParsedArgs::useCount(const char* flag) const {
    const int index = flag ? syntax.findFlag(flag) : -1;
    if (index < 0 || static_cast<std::size_t>(index) >= usesOfFlag.size()) return 0;
    return static_cast<unsigned int>(usesOfFlag[static_cast<std::size_t>(index)].size());
}

bool ParsedArgs::argument(const char* flag, unsigned int index, std::string_view& word) const {
    const FlagUse* first = use(flag, 0);
    if (!first || index >= first->wordCount) return false;
    word = (*words)[first->firstWord + index];
    return true;
}

namespace {

class Parser {
public:
    Parser(const SyntaxData& syntax, const MArgList& args)
        : words_(wordsOf(args)), count_(static_cast<unsigned int>(words_->size())) {
        result_->syntax = syntax;
        result_->words = words_;
        result_->usesOfFlag.resize(syntax.flags().size());
    }

    std::shared_ptr<const ParsedArgs> run() {
        queryMode_ = syntax().findFlag(kQueryLong) >= 0 && hasQueryFlag();
        // A use per word at most: reserved once rather than grown through copies.
        result_->uses.reserve(count_);
        unsigned int i = 0;
        while (i < count_ && isFlag(i)) {
            if (!readFlag(i)) return nullptr;
        }
        result_->firstObject = i;
        for (; i < count_; ++i) {
            if (isFlag(i)) {
                fail("Flags must come before objects: " + std::string(word(i)));
                return nullptr;
            }
        }
        return readObjects() ? std::move(result_) : nullptr;
    }

private:
    static std::shared_ptr<const WordList> wordsOf(const MArgList& args) {
        std::shared_ptr<const WordList> words = args.sharedWords();
        return words ? words : std::make_shared<const WordList>();
    }

    const SyntaxData& syntax() const { return result_->syntax; }
    std::string_view word(unsigned int i) const { return (*words_)[i]; }

    // Unquoted words that start with '-' are flags, unless they are negative numbers.
    bool isFlag(unsigned int i) const {
        if (words_->quoted(i)) return false;
        const std::string_view text = word(i);
        return text.size() > 1 && text[0] == '-' && !isNegativeNumber(text);
    }

    // -q or -query anywhere, even among the arguments of other flags.
    bool hasQueryFlag() const {
        for (unsigned int i = 0; i < count_; ++i) {
            if (!words_->quoted(i) && (word(i) == kQueryShort || word(i) == kQueryLong)) return true;
        }
        return false;
    }

    // Reads the flag at `i` and its arguments (none in query mode), advancing `i` past them.
    bool readFlag(unsigned int& i) {
        const std::string_view typed = word(i++);
        const int index = syntax().findFlag(typed);
        if (index < 0) return fail("Invalid flag: " + std::string(typed));
        const SyntaxFlag& flag = syntax().flags()[static_cast<std::size_t>(index)];
        const FlagUse use{static_cast<unsigned int>(index), i,
                          queryMode_ ? 0u : static_cast<unsigned int>(flag.argTypes.size())};
        for (unsigned int k = 0; k < use.wordCount; ++k, ++i) {
            const MSyntax::MArgType type = flag.argTypes[k];
            if (i >= count_ || isFlag(i)) {
                return fail("Flag '" + std::string(typed) + "' must be passed " + typeDescription(type) +
                            " argument.");
            }
            const std::string_view value = word(i);
            if (!wordFitsType(value, type)) {
                return fail("Invalid argument for flag " + std::string(typed) + ": '" + std::string(value) +
                            "'.");
            }
            if (type == MSyntax::kSelectionItem && !MSelectionList().add(wordString(value))) {
                return fail("No object matches name: " + std::string(value));
            }
        }
        record(use, flag.multiUse);
        return true;
    }

    void record(const FlagUse& use, bool multiUse) {
        std::vector<unsigned int>& positions = result_->usesOfFlag[use.flag];
        if (!multiUse && !positions.empty()) {
            result_->uses[positions.front()] = use;
            return;
        }
        positions.push_back(static_cast<unsigned int>(result_->uses.size()));
        result_->uses.push_back(use);
    }

    bool readObjects() {
        ParsedArgs& parsed = *result_;
        const bool selectionList = syntax().objectFormat == MSyntax::kSelectionList;
        if (selectionList) {
            for (unsigned int i = 0; i < parsed.objectCount(); ++i) {
                if (!parsed.objects.add(wordString(parsed.object(i))))
                    return fail("No object matches name: " + std::string(parsed.object(i)));
            }
            if (parsed.objectCount() == 0 && syntax().selectionAsDefault) {
                parsed.objects.items() = scene().activeSelection();
                parsed.objectsFromSelection = true;
            }
        }
        const bool takesObjects = selectionList || syntax().objectFormat == MSyntax::kStringObjects;
        const unsigned int maximum = takesObjects ? syntax().maxObjects : 0;
        const unsigned int minimum = takesObjects ? syntax().minObjects : 0;
        const std::size_t found =
            parsed.objectsFromSelection ? parsed.objects.length() : parsed.objectCount();
        if (found < minimum) {
            return fail("Not enough objects or values: expected at least " + std::to_string(minimum) +
                        ", found " + std::to_string(found) + ".");
        }
        if (found > maximum) {
            return fail("Too many objects or values: expected at most " + std::to_string(maximum) +
                        ", found " + std::to_string(found) + ".");
        }
        return true;
    }

    // Reports a parse error; always false.
    static bool fail(const std::string& message) {
        messageLog().error(message);
        return false;
    }

    const std::shared_ptr<const WordList> words_;
    const unsigned int count_;
    std::shared_ptr<ParsedArgs> result_ = std::make_shared<ParsedArgs>();
    bool queryMode_ = false;
};

} // namespace

std::shared_ptr<const ParsedArgs> parseArgs(const SyntaxData& syntax, const MArgList& args) {
    return Parser(syntax, args).run();
}

} // namespace host
