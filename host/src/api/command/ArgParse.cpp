#include "api/command/ParsedArgs.h"
#include "api/command/WordValue.h"
#include "engine/Scene.h"

namespace host {

const FlagUse* ParsedArgs::use(const char* flag, unsigned int i) const {
    const int index = flag ? syntax.findFlag(flag) : -1;
    if (index < 0 || static_cast<std::size_t>(index) >= usesOfFlag.size()) return nullptr;
    const std::vector<std::size_t>& positions = usesOfFlag[static_cast<std::size_t>(index)];
    return i < positions.size() ? &uses[positions[i]] : nullptr;
}

unsigned int ParsedArgs::useCount(const char* flag) const {
    const int index = flag ? syntax.findFlag(flag) : -1;
    if (index < 0 || static_cast<std::size_t>(index) >= usesOfFlag.size()) return 0;
    return static_cast<unsigned int>(usesOfFlag[static_cast<std::size_t>(index)].size());
}

const std::string* ParsedArgs::argument(const char* flag, unsigned int index) const {
    const FlagUse* first = use(flag, 0);
    return first && index < first->words.size() ? &first->words[index] : nullptr;
}

namespace {

class Parser {
public:
    Parser(const SyntaxData& syntax, const MArgList& args) : args_(args), count_(args.length()) {
        result_->syntax = syntax;
    }

    std::shared_ptr<const ParsedArgs> run() {
        queryMode_ = syntax().findFlag(kQueryLong) >= 0 && (findWord(kQueryShort) || findWord(kQueryLong));
        unsigned int i = 0;
        while (i < count_ && isFlag(i)) {
            if (!readFlag(i)) return nullptr;
        }
        for (; i < count_; ++i) {
            if (isFlag(i)) {
                fail("Flags must come before objects: " + word(i));
                return nullptr;
            }
            result_->objectWords.push_back(word(i));
        }
        return readObjects() ? std::move(result_) : nullptr;
    }

private:
    const SyntaxData& syntax() const { return result_->syntax; }
    std::string word(unsigned int i) const { return args_.asString(i).str(); }

    // Unquoted words that start with '-' are flags, unless they are negative numbers.
    bool isFlag(unsigned int i) const {
        if (args_.isQuoted(i)) return false;
        const std::string text = word(i);
        return text.size() > 1 && text[0] == '-' && !isNegativeNumber(text);
    }

    bool findWord(const char* text) const {
        for (unsigned int i = 0; i < count_; ++i) {
            if (isFlag(i) && word(i) == text) return true;
        }
        return false;
    }

    // Reads the flag at `i` and its arguments (none in query mode), advancing `i` past them.
    bool readFlag(unsigned int& i) {
        const std::string typed = word(i++);
        const int index = syntax().findFlag(typed);
        if (index < 0) return fail("Invalid flag: " + typed);
        const SyntaxFlag& flag = syntax().flags[static_cast<std::size_t>(index)];
        FlagUse use{static_cast<std::size_t>(index), {}};
        for (std::size_t k = 0; k < flag.argTypes.size() && !queryMode_; ++k, ++i) {
            const MSyntax::MArgType type = flag.argTypes[k];
            if (i >= count_ || isFlag(i)) {
                return fail("Flag '" + typed + "' must be passed " + typeDescription(type) + " argument.");
            }
            const std::string value = word(i);
            if (!wordFitsType(value, type)) {
                return fail("Invalid argument for flag " + typed + ": '" + value + "'.");
            }
            if (type == MSyntax::kSelectionItem && !MSelectionList().add(MString(value))) {
                return fail("No object matches name: " + value);
            }
            use.words.push_back(value);
        }
        record(std::move(use), flag.multiUse);
        return true;
    }

    void record(FlagUse use, bool multiUse) {
        std::vector<std::vector<std::size_t>>& usesOfFlag = result_->usesOfFlag;
        usesOfFlag.resize(syntax().flags.size());
        std::vector<std::size_t>& positions = usesOfFlag[use.flag];
        if (!multiUse && !positions.empty()) {
            result_->uses[positions.front()].words = std::move(use.words);
            return;
        }
        positions.push_back(result_->uses.size());
        result_->uses.push_back(std::move(use));
    }

    bool readObjects() {
        ParsedArgs& parsed = *result_;
        const bool selectionList = syntax().objectFormat == MSyntax::kSelectionList;
        if (selectionList) {
            for (const std::string& name : parsed.objectWords) {
                if (!parsed.objects.add(MString(name))) return fail("No object matches name: " + name);
            }
            if (parsed.objectWords.empty() && syntax().selectionAsDefault) {
                parsed.objects.items() = scene().activeSelection();
                parsed.objectsFromSelection = true;
            }
        }
        const bool takesObjects = selectionList || syntax().objectFormat == MSyntax::kStringObjects;
        const unsigned int maximum = takesObjects ? syntax().maxObjects : 0;
        const unsigned int minimum = takesObjects ? syntax().minObjects : 0;
        const std::size_t found =
            parsed.objectsFromSelection ? parsed.objects.length() : parsed.objectWords.size();
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

    const MArgList& args_;
    const unsigned int count_;
    std::shared_ptr<ParsedArgs> result_ = std::make_shared<ParsedArgs>();
    bool queryMode_ = false;
};

} // namespace

std::shared_ptr<const ParsedArgs> parseArgs(const SyntaxData& syntax, const MArgList& args) {
    return Parser(syntax, args).run();
}

} // namespace host
