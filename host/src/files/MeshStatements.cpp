#include "files/MeshStatements.h"

#include "commands/ArgReader.h"
#include "commands/MeshAttrs.h"
#include "commands/TextValues.h"

#include <charconv>

namespace host {

namespace {

bool readIndex(std::string_view text, uint32_t& out) {
    const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), out);
    return ec == std::errc() && ptr == text.data() + text.size() && out < 0x7FFFFFFFu;
}

} // namespace

bool parseMeshTarget(std::string_view text, MeshTarget& out) {
    if (text.size() < 2 || text[0] != '.' || text.back() != ']') return false;
    const std::size_t open = text.find('[');
    if (open == std::string_view::npos) return false;
    const std::string_view name = text.substr(1, open - 1);
    if (name == "vt" || name == "vrts")
        out.array = MeshArray::Points;
    else if (name == "ed" || name == "edge")
        out.array = MeshArray::Edges;
    else if (name == "fc" || name == "face")
        out.array = MeshArray::Faces;
    else
        return false;
    const std::string_view inside = text.substr(open + 1, text.size() - open - 2);
    const std::size_t colon = inside.find(':');
    uint32_t last = 0;
    if (!readIndex(inside.substr(0, colon), out.first)) return false;
    if (colon == std::string_view::npos)
        last = out.first;
    else if (!readIndex(inside.substr(colon + 1), last) || last < out.first)
        return false;
    out.count = static_cast<std::size_t>(last - out.first) + 1;
    return true;
}

namespace {

std::string countText(const char* what, std::size_t expected, std::size_t found) {
    return std::string(what) + " data provided (expected " + std::to_string(expected) + ", found " +
           std::to_string(found) + ").";
}

bool readNumbers(const std::vector<const Token*>& values, std::size_t expected, std::vector<double>& out,
                 std::string& error) {
    if (values.size() != expected) {
        error = countText(values.size() < expected ? "not enough" : "too much", expected, values.size());
        return false;
    }
    out.resize(expected);
    for (std::size_t i = 0; i < expected; ++i)
        if (!numberFromText(values[i]->text, out[i])) {
            error = "'" + values[i]->text + "' is not a number.";
            return false;
        }
    return true;
}

// A count and that many integers after position `i`; false when they are not all there.
bool readIntList(const std::vector<const Token*>& values, std::size_t& i, std::vector<int>* out,
                 std::string& error) {
    int count = 0;
    if (i >= values.size() || !integerFromText(values[i]->text, count) || count < 0 ||
        static_cast<std::size_t>(count) > values.size() - i - 1) {
        error = "a list in the -type polyFaces data is cut short or has no count.";
        return false;
    }
    ++i;
    if (out) out->resize(static_cast<std::size_t>(count));
    for (int k = 0; k < count; ++k, ++i) {
        int v = 0;
        if (!integerFromText(values[i]->text, v)) {
            error = "'" + values[i]->text + "' is not an integer in the -type polyFaces data.";
            return false;
        }
        if (out) (*out)[static_cast<std::size_t>(k)] = v;
    }
    return true;
}

// "f N e…" per face, each followed by its "mu", "mc", "h" and "fc" records, kept as text.
bool readFaces(const std::vector<const Token*>& values, std::vector<std::vector<int>>& faces,
               std::vector<std::string>& records, std::string& error) {
    for (std::size_t i = 0; i < values.size();) {
        if (values[i]->text != "f") {
            error = "expected 'f' in the -type polyFaces data, found '" + values[i]->text + "'.";
            return false;
        }
        ++i;
        if (!readIntList(values, i, &faces.emplace_back(), error)) return false;
        if (faces.back().empty()) {
            error = "a face in the -type polyFaces data has no edges.";
            return false;
        }
        std::string& text = records.emplace_back();
        const std::size_t start = i;
        while (i < values.size() && values[i]->text != "f") {
            const std::string& record = values[i++]->text;
            int set = 0;
            if (record == "mu" || record == "mc") {
                // The uv or colour set the record is for comes before its list.
                if (i == values.size() || !integerFromText(values[i]->text, set)) {
                    error = "the '" + record + "' record in the -type polyFaces data needs a set number.";
                    return false;
                }
                ++i;
            } else if (record != "h" && record != "fc") {
                error = "unknown record '" + record + "' in the -type polyFaces data.";
                return false;
            }
            if (!readIntList(values, i, nullptr, error)) return false;
        }
        for (std::size_t k = start; k < i; ++k) {
            if (k > start) text += ' ';
            text += values[k]->text;
        }
    }
    return true;
}

// Only meshes whose faces have records keep a list of them.
void keepRecords(std::vector<std::string>& records, uint32_t first, std::vector<std::string>& kept) {
    bool any = false;
    for (const std::string& r : records) any = any || !r.empty();
    if (!any) return;
    if (kept.size() < first + records.size()) kept.resize(first + records.size());
    for (std::size_t k = 0; k < records.size(); ++k) kept[first + k] = std::move(records[k]);
}

} // namespace

bool writeMeshNumbers(Node& shape, NodeFileInfo& info, const MeshTarget& target,
                      const std::vector<double>& numbers, std::string& error) {
    if (target.array == MeshArray::Points)
        return writeMeshPoints(shape, target.first, target.count, 0, 3, numbers, error);
    if (!writeMeshEdges(shape, target.first, target.count, 0, 3, numbers, error)) return false;
    if (info.edgeFlags.size() < target.first + target.count)
        info.edgeFlags.resize(target.first + target.count, 1);
    for (std::size_t k = 0; k < target.count; ++k)
        info.edgeFlags[target.first + k] = numbers[3 * k + 2] != 0.0 ? 1 : 0;
    return true;
}

bool writeMeshFaceList(Node& shape, NodeFileInfo& info, const MeshTarget& target,
                       const std::vector<std::vector<int>>& loops, std::vector<std::string>& records,
                       std::string& error) {
    if (loops.size() != target.count) {
        error =
            countText(loops.size() < target.count ? "not enough" : "too much", target.count, loops.size());
        return false;
    }
    std::vector<const std::vector<int>*> pointers;
    pointers.reserve(loops.size());
    for (const auto& loop : loops) pointers.push_back(&loop);
    if (!writeMeshFaces(shape, target.first, pointers, error)) return false;
    keepRecords(records, target.first, info.faceRecords);
    return true;
}

MeshStatement readMeshStatement(const Statement& statement, Node& shape, NodeFileInfo& info,
                                std::string& error) {
    if (statement.command != "setAttr" || !shape.type().isA("mesh")) return MeshStatement::Other;
    std::vector<const Token*> values;
    const Token* plug = nullptr;
    std::string typeName;
    for (std::size_t i = 0; i < statement.args.size(); ++i) {
        const Token& token = statement.args[i];
        if (!isFlagToken(token)) {
            if (plug)
                values.push_back(&token);
            else
                plug = &token;
            continue;
        }
        const std::string& flag = token.text;
        if (flag != "-s" && flag != "-size" && flag != "-ch" && flag != "-capacityHint" && flag != "-type" &&
            flag != "-typ")
            return MeshStatement::Other;
        if (++i == statement.args.size()) return MeshStatement::Other;
        if (flag == "-type" || flag == "-typ") typeName = statement.args[i].text;
    }
    MeshTarget target;
    if (!plug || !parseMeshTarget(plug->text, target)) return MeshStatement::Other;
    const bool faces = target.array == MeshArray::Faces;
    if (faces ? typeName != "polyFaces" : !typeName.empty()) return MeshStatement::Other;
    if (faces) {
        std::vector<std::vector<int>> loops;
        std::vector<std::string> records;
        return readFaces(values, loops, records, error) &&
                       writeMeshFaceList(shape, info, target, loops, records, error)
                   ? MeshStatement::Read
                   : MeshStatement::Failed;
    }
    std::vector<double> numbers;
    return readNumbers(values, 3 * target.count, numbers, error) &&
                   writeMeshNumbers(shape, info, target, numbers, error)
               ? MeshStatement::Read
               : MeshStatement::Failed;
}

} // namespace host
