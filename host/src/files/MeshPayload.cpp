#include "files/MeshPayload.h"

#include "commands/TextValues.h"
#include "engine/HugePages.h"
#include "files/MeshStatements.h"

namespace host {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// The characters of a number; a word with any other is left to the general reader.
bool isNumberChar(char c) {
    return (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.' || c == 'e' || c == 'E';
}

// A cursor over the statement text that gives up (returns false) at anything outside the plain form.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::size_t pos() const { return pos_; }
    void rewind(std::size_t pos) { pos_ = pos; }
    // At most this many more words can follow: each takes a character and a blank.
    std::size_t wordsLeft() const { return (text_.size() - pos_) / 2 + 1; }

    void skipBlanks() {
        while (pos_ < text_.size() && isBlank(text_[pos_])) ++pos_;
    }

    bool atEnd() {
        skipBlanks();
        return pos_ < text_.size() && text_[pos_] == ';';
    }

    // The next word: a run of characters up to a blank or ';'. Empty at the end of the statement.
    std::string_view word() {
        skipBlanks();
        const std::size_t begin = pos_;
        while (pos_ < text_.size() && !isBlank(text_[pos_]) && text_[pos_] != ';') ++pos_;
        return text_.substr(begin, pos_ - begin);
    }

    // A double-quoted word without escapes.
    bool quoted(std::string_view& out) {
        skipBlanks();
        if (pos_ >= text_.size() || text_[pos_] != '"') return false;
        const std::size_t close = text_.find_first_of("\"\\\n", pos_ + 1);
        if (close == std::string_view::npos || text_[close] != '"') return false;
        out = text_.substr(pos_ + 1, close - pos_ - 1);
        pos_ = close + 1;
        return pos_ < text_.size() && (isBlank(text_[pos_]) || text_[pos_] == ';');
    }

    bool number(double& out) {
        const std::string_view w = word();
        for (char c : w)
            if (!isNumberChar(c)) return false;
        return numberFromText(w, out);
    }

    bool integer(int& out) {
        const std::string_view w = word();
        for (char c : w)
            if (!isNumberChar(c)) return false;
        return integerFromText(w, out);
    }

private:
    std::string_view text_;
    std::size_t pos_ = 0;
};

// A flag the geometry statements carry, before or after the plug, read with its argument; false
// (nothing read) for any other word.
bool readFlag(Scanner& in, bool& polyFaces) {
    const std::size_t start = in.pos();
    const std::string_view flag = in.word();
    std::string_view type;
    if ((flag == "-type" || flag == "-typ") && in.quoted(type) && type == "polyFaces") {
        polyFaces = true;
        return true;
    }
    int ignored = 0;
    if ((flag == "-s" || flag == "-size" || flag == "-ch" || flag == "-capacityHint") && in.integer(ignored))
        return true;
    in.rewind(start);
    return false;
}

// The flags and the plug; false when the statement is not a geometry statement in the plain form.
bool readHead(Scanner& in, MeshTarget& target) {
    if (in.word() != "setAttr") return false;
    bool polyFaces = false;
    while (readFlag(in, polyFaces)) {
    }
    std::string_view plug;
    if (!in.quoted(plug) || !parseMeshTarget(plug, target)) return false;
    while (readFlag(in, polyFaces)) {
    }
    return polyFaces == (target.array == MeshArray::Faces);
}

bool readNumbers(Scanner& in, std::size_t count, std::vector<double>& numbers) {
    if (count > in.wordsLeft()) return false;
    numbers.reserve(count);
    preferHugePages(numbers.data(), numbers.capacity() * sizeof(double));
    numbers.resize(count);
    for (double& n : numbers)
        if (!in.number(n)) return false;
    return in.atEnd();
}

// "f N e…" per face and nothing else.
bool readFaces(Scanner& in, std::size_t count, std::vector<std::vector<int>>& loops) {
    if (count > in.wordsLeft()) return false;
    loops.resize(count);
    for (std::vector<int>& loop : loops) {
        int size = 0;
        if (in.word() != "f" || !in.integer(size) || size <= 0 ||
            static_cast<std::size_t>(size) > in.wordsLeft())
            return false;
        loop.resize(static_cast<std::size_t>(size));
        for (int& edge : loop)
            if (!in.integer(edge)) return false;
    }
    return in.atEnd();
}

} // namespace

std::size_t readMeshPayload(std::string_view text, Node& shape, NodeFileInfo& info,
                            MeshPayloadBuffers& buffers) {
    Scanner in(text);
    MeshTarget target;
    if (!readHead(in, target)) return 0;
    std::string error;
    if (target.array == MeshArray::Faces) {
        std::vector<std::string> noRecords;
        if (!readFaces(in, target.count, buffers.loops) ||
            !writeMeshFaceList(shape, info, target, buffers.loops, noRecords, error))
            return 0;
    } else if (!readNumbers(in, 3 * target.count, buffers.numbers) ||
               !writeMeshNumbers(shape, info, target, buffers.numbers, error)) {
        return 0;
    }
    return in.pos() + 1;
}

} // namespace host
