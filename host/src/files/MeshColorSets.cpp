#include "files/MeshColorSets.h"

#include "engine/Node.h"
#include "files/MaText.h"
#include "files/SceneFileStore.h"

#include <charconv>
#include <sstream>

namespace host {

namespace {

bool isSet(const std::array<float, 4>& color) {
    return color[3] >= 0.f;
}

int intOf(const std::string& word) {
    int value = -1;
    std::from_chars(word.data(), word.data() + word.size(), value);
    return value;
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream in(text);
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

// One record of a face ("mu 0 4 0 1 3 2"): its name, set, and indices, from position `i` on.
struct FaceRecord {
    std::string name;
    int set = -1;
    std::vector<int> indices;
    std::size_t begin = 0, end = 0; // its words
};

std::vector<FaceRecord> recordsOf(const std::vector<std::string>& words) {
    std::vector<FaceRecord> records;
    for (std::size_t i = 0; i < words.size();) {
        FaceRecord r;
        r.begin = i;
        r.name = words[i++];
        if ((r.name == "mu" || r.name == "mc") && i < words.size()) r.set = intOf(words[i++]);
        const int count = i < words.size() ? intOf(words[i++]) : 0;
        for (int k = 0; k < count && i < words.size(); ++k) r.indices.push_back(intOf(words[i++]));
        r.end = i;
        records.push_back(std::move(r));
    }
    return records;
}

// The colours of one ".clst" element: its name and its ".clsp" colours by index, looked up where they
// are stored, since a file may give any index.
struct FileColorSet {
    int index = 0;
    std::string name;
    const SparseArray<Slot>* colors = nullptr;
};

// Colour `id` of the set; false when the file does not give it.
bool colorOf(const FileColorSet& set, int id, std::array<float, 4>& out) {
    const Slot* point = id >= 0 && set.colors ? set.colors->find(static_cast<uint32_t>(id)) : nullptr;
    if (!point) return false;
    for (std::size_t c = 0; c < 4; ++c)
        out[c] = point->children && c < point->children->size()
                     ? static_cast<float>(valueAsDouble((*point->children)[c].value))
                     : (c == 3 ? 1.f : 0.f);
    return true;
}

std::vector<FileColorSet> colorSetsOf(const Node& shape, const AttrSpec& clst) {
    std::vector<FileColorSet> sets;
    const Slot* slot = shape.topSlotIfAny(&clst);
    const AttrSpec* nameAttr = clst.childNamed("clsn");
    const AttrSpec* pointsAttr = clst.childNamed("clsp");
    if (!slot || !slot->elements || !nameAttr || !pointsAttr) return sets;
    for (std::size_t p = 0; p < slot->elements->size(); ++p) {
        const Slot& element = slot->elements->valueAt(p);
        FileColorSet set;
        set.index = static_cast<int>(slot->elements->keyAt(p));
        if (!element.children) continue;
        const auto& children = *element.children;
        if (static_cast<std::size_t>(nameAttr->index) < children.size())
            if (auto name =
                    std::get_if<std::string>(&children[static_cast<std::size_t>(nameAttr->index)].value))
                set.name = *name;
        const std::size_t pointsIndex = static_cast<std::size_t>(pointsAttr->index);
        if (pointsIndex < children.size()) set.colors = children[pointsIndex].elements.get();
        if (!set.name.empty()) sets.push_back(std::move(set));
    }
    return sets;
}

} // namespace

std::vector<std::vector<int>> colorIndices(const MeshData& mesh) {
    std::vector<std::vector<int>> indices;
    for (const ColorSet& set : mesh.colorSets) {
        std::vector<int>& ids = indices.emplace_back(mesh.points.size(), -1);
        int next = 0;
        for (std::size_t v = 0; v < ids.size() && v < set.colors.size(); ++v)
            if (isSet(set.colors[v])) ids[v] = next++;
    }
    return indices;
}

void appendColorSetValues(const MeshData& mesh, const std::vector<std::vector<int>>& indices,
                          std::string& out) {
    for (std::size_t s = 0; s < mesh.colorSets.size(); ++s) {
        const ColorSet& set = mesh.colorSets[s];
        const std::string element = ".clst[" + std::to_string(s) + "]";
        out += "\tsetAttr " + quoted(element + ".clsn") + " -type \"string\" " + quoted(set.name) + ";\n";
        std::size_t count = 0;
        for (int id : indices[s]) count += id >= 0 ? 1 : 0;
        if (count == 0) continue;
        out +=
            "\tsetAttr -s " + std::to_string(count) + " " +
            quoted(element + ".clsp[0" + (count > 1 ? ":" + std::to_string(count - 1) : std::string()) + "]");
        ValueList list(out);
        for (std::size_t v = 0; v < indices[s].size(); ++v)
            if (indices[s][v] >= 0)
                for (float c : set.colors[v]) appendFloat(list.next(), c);
        out += ";\n";
    }
}

void appendCurrentColorSet(const MeshData& mesh, std::string& out) {
    if (!mesh.colorSets.empty() && !mesh.currentColorSet.empty())
        out += "\tsetAttr \".ccls\" -type \"string\" " + quoted(mesh.currentColorSet) + ";\n";
}

void appendFaceColors(const MeshData& mesh, const std::vector<std::vector<int>>& indices,
                      std::size_t firstCorner, int count, std::string& out) {
    for (std::size_t s = 0; s < indices.size(); ++s) {
        bool any = false;
        for (int k = 0; k < count && !any; ++k)
            any = indices[s][static_cast<std::size_t>(mesh.faceConnects[firstCorner + k])] >= 0;
        if (!any) continue;
        out += " mc " + std::to_string(s) + " " + std::to_string(count);
        for (int k = 0; k < count; ++k)
            out += " " +
                   std::to_string(indices[s][static_cast<std::size_t>(mesh.faceConnects[firstCorner + k])]);
    }
}

void adoptColorSets(Node& shape, NodeFileInfo& info) {
    const AttrSpec* clst = shape.findAttr("colorSet");
    const AttrSpec* current = shape.findAttr("currentColorSet");
    auto& shared = shape.mesh();
    if (!clst || !current || !shared) return;
    const std::vector<FileColorSet> fileSets = colorSetsOf(shape, *clst);
    if (fileSets.empty()) return;
    if (shared.use_count() > 1) shared = std::static_pointer_cast<MeshData>(shared->clone());
    MeshData* mesh = shared.get();
    std::vector<ColorSet> sets;
    for (const FileColorSet& fileSet : fileSets) {
        ColorSet& set = sets.emplace_back();
        set.name = fileSet.name;
        set.colors.assign(mesh->points.size(), {0.f, 0.f, 0.f, -1.f});
    }
    // Each face corner's colour index goes to its vertex; the first corner with a colour wins.
    std::size_t corner = 0;
    for (std::size_t f = 0; f < mesh->faceCounts.size(); ++f) {
        const int count = mesh->faceCounts[f];
        std::vector<std::string> words =
            f < info.faceRecords.size() ? wordsOf(info.faceRecords[f]) : std::vector<std::string>();
        std::string kept;
        for (const FaceRecord& r : recordsOf(words)) {
            bool adopted = false;
            for (std::size_t s = 0; r.name == "mc" && s < fileSets.size(); ++s) {
                if (fileSets[s].index != r.set) continue;
                adopted = true;
                for (std::size_t k = 0; k < r.indices.size() && k < static_cast<std::size_t>(count); ++k) {
                    const auto vertex = static_cast<std::size_t>(mesh->faceConnects[corner + k]);
                    if (vertex < sets[s].colors.size() && !isSet(sets[s].colors[vertex]))
                        colorOf(fileSets[s], r.indices[k], sets[s].colors[vertex]);
                }
            }
            if (adopted) continue;
            for (std::size_t w = r.begin; w < r.end; ++w) kept += (kept.empty() ? "" : " ") + words[w];
        }
        if (f < info.faceRecords.size()) info.faceRecords[f] = std::move(kept);
        corner += static_cast<std::size_t>(count);
    }
    const Slot* currentSlot = shape.topSlotIfAny(current);
    const std::string* currentName = currentSlot ? std::get_if<std::string>(&currentSlot->value) : nullptr;
    mesh->colorSets = std::move(sets);
    mesh->currentColorSet.clear();
    for (const ColorSet& set : mesh->colorSets)
        if (mesh->currentColorSet.empty() || (currentName && set.name == *currentName))
            mesh->currentColorSet = set.name;
    shape.topSlot(clst) = Slot();
    shape.topSlot(current) = Slot();
    shape.touch();
}

} // namespace host
