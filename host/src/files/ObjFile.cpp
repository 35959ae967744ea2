#include "files/ObjFile.h"

#include "files/MaText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <set>

namespace host {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v';
}

// The words of one line, up to a '#' comment, into `words` (reused from line to line).
void wordsOf(std::string_view line, std::vector<std::string_view>& words) {
    words.clear();
    const std::size_t hash = line.find('#');
    if (hash != std::string_view::npos) line = line.substr(0, hash);
    std::size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && isBlank(line[i])) ++i;
        const std::size_t start = i;
        while (i < line.size() && !isBlank(line[i])) ++i;
        if (i > start) words.push_back(line.substr(start, i - start));
    }
}

bool readDouble(std::string_view word, double& out) {
    if (!word.empty() && word.front() == '+') word.remove_prefix(1);
    const auto [ptr, ec] = std::from_chars(word.data(), word.data() + word.size(), out);
    return ec == std::errc() && ptr == word.data() + word.size() && std::isfinite(out);
}

// The vertex of a face corner ("7", "7/2", "7//3", "-1/-1/-1"), counted from 0; false when malformed.
bool readCorner(std::string_view word, long long vertexCount, long long& out) {
    const std::string_view index = word.substr(0, word.find('/'));
    long long value = 0;
    const auto [ptr, ec] = std::from_chars(index.data(), index.data() + index.size(), value);
    if (ec != std::errc() || ptr != index.data() + index.size() || value == 0) return false;
    out = value > 0 ? value - 1 : vertexCount + value;
    return true;
}

struct Reader {
    MeshData& mesh;
    std::string& error;
    std::vector<std::string>& warnings;
    std::set<std::string, std::less<>> reportedKeywords;
    // Positive corners may name vertices given later in the file: checked at the end.
    std::vector<std::size_t> faceLines;

    bool fail(std::size_t line, const std::string& what) {
        error = "line " + std::to_string(line) + ": " + what;
        return false;
    }

    bool vertex(const std::vector<std::string_view>& words, std::size_t line) {
        // x y z, with an optional w or r g b (vertex colours) after them.
        if (words.size() < 4 || words.size() > 8)
            return fail(line, "a vertex needs three coordinates (\"v x y z\").");
        std::array<float, 3> p{};
        for (std::size_t k = 1; k < words.size(); ++k) {
            double value = 0.0;
            if (!readDouble(words[k], value))
                return fail(line, "'" + std::string(words[k]) + "' is not a number.");
            if (k > 3) continue;
            if (std::fabs(value) > std::numeric_limits<float>::max())
                return fail(line, "the coordinate " + std::string(words[k]) + " is too large.");
            p[k - 1] = static_cast<float>(value);
        }
        mesh.points.push_back(p);
        return true;
    }

    bool face(const std::vector<std::string_view>& words, std::size_t line) {
        if (words.size() < 4) return fail(line, "a face needs at least three vertices.");
        const long long count = static_cast<long long>(mesh.points.size());
        const std::size_t start = mesh.faceConnects.size();
        for (std::size_t k = 1; k < words.size(); ++k) {
            long long v = 0;
            if (!readCorner(words[k], count, v))
                return fail(line, "'" + std::string(words[k]) + "' is not a vertex number.");
            if (v < 0 || v > std::numeric_limits<int>::max() - 1)
                return fail(line, "the vertex " + std::string(words[k]) + " comes before the first vertex.");
            mesh.faceConnects.push_back(static_cast<int>(v));
        }
        const std::size_t n = mesh.faceConnects.size() - start;
        for (std::size_t k = 0; k < n; ++k)
            if (mesh.faceConnects[start + k] == mesh.faceConnects[start + (k + 1) % n])
                return fail(line, "the face uses vertex " + std::to_string(mesh.faceConnects[start + k] + 1) +
                                      " twice in a row.");
        mesh.faceCounts.push_back(static_cast<int>(n));
        faceLines.push_back(line);
        return true;
    }

    void other(std::string_view keyword, std::size_t line) {
        static const std::set<std::string, std::less<>> passedOver = {"vt", "vn",     "vp",     "o", "g",
                                                                      "s",  "usemtl", "mtllib", "l", "p"};
        if (passedOver.count(keyword) || !reportedKeywords.insert(std::string(keyword)).second) return;
        warnings.push_back("line " + std::to_string(line) + ": '" + std::string(keyword) +
                           "' lines are not understood and were passed over.");
    }

    bool checkFaces() {
        std::size_t offset = 0;
        for (std::size_t f = 0; f < mesh.faceCounts.size(); ++f) {
            for (int k = 0; k < mesh.faceCounts[f]; ++k) {
                const int v = mesh.faceConnects[offset + static_cast<std::size_t>(k)];
                if (static_cast<std::size_t>(v) >= mesh.points.size())
                    return fail(faceLines[f], "the face names vertex " + std::to_string(v + 1) +
                                                  ", but there are " + std::to_string(mesh.points.size()) +
                                                  " vertices.");
            }
            offset += static_cast<std::size_t>(mesh.faceCounts[f]);
        }
        return true;
    }
};

} // namespace

bool parseObj(std::string_view text, MeshData& mesh, std::string& error, std::vector<std::string>& warnings) {
    Reader reader{mesh, error, warnings, {}, {}};
    // No more vertices or faces than lines: reserved once (untouched capacity costs no memory)
    // instead of grown by copying.
    const std::size_t lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    mesh.points.reserve(mesh.points.size() + lines);
    mesh.faceCounts.reserve(mesh.faceCounts.size() + lines);
    reader.faceLines.reserve(lines);
    std::vector<std::string_view> words;
    std::size_t line = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        ++line;
        std::size_t end = text.find('\n', pos);
        if (end == std::string_view::npos) end = text.size();
        wordsOf(text.substr(pos, end - pos), words);
        pos = end + 1;
        if (words.empty()) continue;
        if (words[0] == "v") {
            if (!reader.vertex(words, line)) return false;
        } else if (words[0] == "f") {
            if (!reader.face(words, line)) return false;
        } else {
            reader.other(words[0], line);
        }
    }
    return reader.checkFaces();
}

void appendObjMesh(const std::string& name, const MeshData& mesh, std::size_t vertexOffset,
                   std::string& out) {
    out += "g " + name + "\n";
    for (const auto& p : mesh.points) {
        out += 'v';
        for (float c : p) {
            out += ' ';
            appendFloat(out, c);
        }
        out += '\n';
    }
    std::size_t corner = 0;
    for (int count : mesh.faceCounts) {
        out += 'f';
        for (int k = 0; k < count; ++k) {
            out += ' ';
            appendInt(out, static_cast<long long>(vertexOffset) + mesh.faceConnects[corner++] + 1);
        }
        out += '\n';
    }
}

} // namespace host
