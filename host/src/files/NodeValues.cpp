#include "files/NodeValues.h"

#include "commands/TypedValues.h"
#include "files/MaText.h"
#include "files/MeshColorSets.h"
#include "files/MeshWriter.h"
#include "files/SceneFileStore.h"
#include "files/ValueText.h"

#include <unordered_map>

namespace host {

namespace {

// A compound of numeric leaves with a tuple type such as double3 or float2: written as one value.
bool isTuple(const AttrSpec& attr) {
    if (!attr.isCompound() || attr.children.empty()) return false;
    for (const auto& child : attr.children)
        if (!child->isNumeric() || child->multi) return false;
    const PayloadType type = payloadType(attr.typeName);
    return type.kind == PayloadKind::Numbers && type.arity == static_cast<int>(attr.children.size());
}

// A multi compound whose one child is a numeric multi (weightList[v].weights[i]): written as sparse
// rows, a count and (index, value) pairs per element.
bool isWeightRows(const AttrSpec& attr) {
    return attr.multi && attr.isCompound() && attr.children.size() == 1 && attr.children[0]->multi &&
           attr.children[0]->isNumeric();
}

bool hasNumberIn(const Slot& slot) {
    if (!slot.children) return false;
    for (const Slot& child : *slot.children)
        if (valueIsNumeric(child.value)) return true;
    return false;
}

// How an element of a multi is written: elements with equal keys and consecutive indices share one
// statement. Elements that cannot share one have `shared` false.
struct RunKey {
    bool shared = false;
    std::string typeWord;
    std::size_t arity = 0;
    bool operator==(const RunKey& o) const {
        return shared == o.shared && typeWord == o.typeWord && arity == o.arity;
    }
};

RunKey runKeyOf(const AttrSpec& attr, const Slot& element) {
    if (isTuple(attr))
        return hasNumberIn(element) ? RunKey{true, attr.typeName, attr.children.size()} : RunKey{};
    if (attr.isCompound()) return {};
    const Value& v = element.value;
    if (valueIsNumeric(v) && (attr.isNumeric() || attr.type == AttrType::Generic)) return {true, "", 1};
    if (attr.type != AttrType::Generic) return {};
    const auto* data = std::get_if<DataPtr>(&v);
    const auto* values = data ? dataAs<DoubleArrayData>(*data) : nullptr;
    if (!values || values->values.empty()) return {};
    const std::string typeWord = typeWordOf(attr, v);
    if (typeWord == "doubleArray") return {};
    return {true, typeWord, values->values.size()};
}

class NodeValueWriter {
public:
    NodeValueWriter(const NodePtr& node, const NodeFileInfo* info, std::string& out,
                    std::vector<std::string>& problems)
        : node_(node), info_(info), out_(out), problems_(problems) {
        if (info_)
            for (const auto& [path, flags] : info_->plugFlags) flags_[path] = flags;
    }

    void run() {
        for (std::size_t i = 0; i < node_->attrCount(); ++i) {
            const AttrSpec* attr = node_->attrAt(i);
            if (meshGeometry(*attr)) continue;
            if (const Slot* slot = node_->topSlotIfAny(attr)) attribute(*attr, *slot, "");
        }
        aliases();
        leftoverFlags();
    }

private:
    // The mesh's arrays and colour sets come from its geometry, written where they stand in the table.
    bool meshGeometry(const AttrSpec& attr) {
        if (!node_->type().isA("mesh")) return false;
        if (attr.longName == "vrts") {
            std::string problem;
            if (!appendMeshGeometry(*node_, info_, out_, problem))
                problems_.push_back(node_->name() + ": faces not written: " + problem);
        }
        const MeshData* mesh = node_->mesh().get();
        if (mesh && !mesh->colorSets.empty()) {
            if (attr.longName == "colorSet") appendColorSetValues(*mesh, colorIndices(*mesh), out_);
            if (attr.longName == "currentColorSet") appendCurrentColorSet(*mesh, out_);
            if (attr.longName == "colorSet" || attr.longName == "currentColorSet") return true;
        }
        return attr.longName == "vrts" || attr.longName == "edge" || attr.longName == "face";
    }

    void attribute(const AttrSpec& attr, const Slot& slot, const std::string& prefix) {
        const std::string name = prefix + attr.shortName;
        if (attr.multi) {
            if (slot.elements) multi(attr, *slot.elements, name);
        } else if (isTuple(attr)) {
            if (hasNonDefaultChild(attr, slot)) tupleStatement(attr, slot, name);
        } else if (attr.isCompound()) {
            // Children of a kept-as-is compound are named through it, since their names may repeat.
            const std::string childPrefix = attr.madeUp ? name + "." : prefix;
            for (std::size_t c = 0; slot.children && c < slot.children->size() && c < attr.children.size();
                 ++c)
                attribute(*attr.children[c], (*slot.children)[c], childPrefix);
        } else if (!(slot.value == attr.defaultValue)) {
            leafStatement(attr, slot.value, name);
        }
    }

    static bool hasNonDefaultChild(const AttrSpec& attr, const Slot& slot) {
        for (std::size_t c = 0; slot.children && c < slot.children->size(); ++c) {
            const Value& v = (*slot.children)[c].value;
            if (valueIsNumeric(v) && !(v == attr.children[c]->defaultValue)) return true;
        }
        return false;
    }

    void multi(const AttrSpec& attr, const SparseArray<Slot>& elements, const std::string& name) {
        if (isWeightRows(attr)) {
            weightRows(attr, elements, name);
            return;
        }
        if (elements.holdsNumbers() && !isTuple(attr) && !attr.isCompound() &&
            (attr.isNumeric() || attr.type == AttrType::Generic)) {
            numberRuns(attr, elements, name);
            return;
        }
        std::vector<RunKey> keys(elements.size());
        std::size_t shared = 0;
        for (std::size_t p = 0; p < elements.size(); ++p) {
            keys[p] = runKeyOf(attr, elements.valueAt(p));
            shared += keys[p].shared ? 1 : 0;
        }
        bool first = true;
        for (std::size_t p = 0; p < elements.size();) {
            const uint32_t index = elements.keyAt(p);
            const std::string elementName = name + "[" + std::to_string(index) + "]";
            if (!keys[p].shared) {
                const Slot& element = elements.valueAt(p);
                if (attr.isCompound()) {
                    for (std::size_t c = 0; element.children && c < element.children->size(); ++c)
                        attribute(*attr.children[c], (*element.children)[c], elementName + ".");
                } else if (writableValue(attr, element.value)) {
                    leafStatement(attr, element.value, elementName);
                }
                ++p;
                continue;
            }
            std::size_t end = p + 1;
            while (end < elements.size() && keys[end] == keys[p] && elements.keyAt(end) == index + (end - p))
                ++end;
            runStatement(attr, elements, p, end, name, keys[p], first ? shared : 0);
            first = false;
            p = end;
        }
    }

    // Bare numbers, all plain values: runs break only where indices do, as elements' runs would.
    void numberRuns(const AttrSpec& attr, const SparseArray<Slot>& elements, const std::string& name) {
        const std::vector<uint32_t>& keys = elements.keys();
        const std::vector<double>& numbers = elements.numbers();
        for (std::size_t p = 0; p < keys.size();) {
            std::size_t end = p + 1;
            while (end < keys.size() && keys[end] == keys[p] + (end - p)) ++end;
            runHeader(keys[p], end - p, name, RunKey{true, "", 1}, p == 0 ? keys.size() : 0);
            ValueList list(out_);
            for (; p < end; ++p) appendValueText(attr, Value(numbers[p]), "", list);
            out_ += ";\n";
        }
    }

    // "setAttr" of `count` elements from index `first` up to its values.
    void runHeader(uint32_t first, std::size_t count, const std::string& name, const RunKey& key,
                   std::size_t size) {
        std::string path = name + "[" + std::to_string(first);
        if (count > 1) path += ":" + std::to_string(first + (count - 1));
        path += "]";
        out_ += "\tsetAttr ";
        if (size > 1) {
            out_ += "-s ";
            appendInt(out_, static_cast<long long>(size));
            out_ += ' ';
        }
        if (count == 1) plugFlags(path);
        out_ += quoted("." + path);
        if (!key.typeWord.empty()) out_ += " -type " + quoted(key.typeWord);
    }

    // Elements [begin, end) of consecutive indices in one statement; `size` > 1 adds "-s size".
    void runStatement(const AttrSpec& attr, const SparseArray<Slot>& elements, std::size_t begin,
                      std::size_t end, const std::string& name, const RunKey& key, std::size_t size) {
        runHeader(elements.keyAt(begin), end - begin, name, key, size);
        ValueList list(out_);
        for (std::size_t p = begin; p < end; ++p) {
            const Slot& element = elements.valueAt(p);
            if (isTuple(attr)) {
                for (std::size_t c = 0; c < attr.children.size(); ++c) {
                    const AttrSpec& child = *attr.children[c];
                    const bool stored = element.children && c < element.children->size() &&
                                        valueIsNumeric((*element.children)[c].value);
                    appendNumber(child, stored ? (*element.children)[c].value : child.defaultValue,
                                 list.next());
                }
            } else {
                appendValueText(attr, element.value, key.typeWord, list);
            }
        }
        out_ += ";\n";
    }

    void weightRows(const AttrSpec& attr, const SparseArray<Slot>& elements, const std::string& name) {
        const AttrSpec& weights = *attr.children[0];
        auto rowOf = [&](std::size_t p) -> const SparseArray<Slot>* {
            const Slot& element = elements.valueAt(p);
            if (!element.children || element.children->empty()) return nullptr;
            return (*element.children)[0].elements.get();
        };
        for (std::size_t p = 0; p < elements.size();) {
            if (!rowOf(p)) {
                ++p;
                continue;
            }
            const uint32_t first = elements.keyAt(p);
            std::size_t end = p + 1;
            while (end < elements.size() && rowOf(end) && elements.keyAt(end) == first + (end - p)) ++end;
            out_ += "\tsetAttr ";
            std::string path = name + "[" + std::to_string(first);
            if (end - p > 1) path += ":" + std::to_string(first + (end - p - 1));
            out_ += quoted("." + path + "]." + weights.shortName);
            ValueList list(out_);
            for (std::size_t q = p; q < end; ++q) {
                const SparseArray<Slot>& row = *rowOf(q);
                std::size_t count = 0;
                for (std::size_t i = 0; i < row.size(); ++i)
                    count += valueIsNumeric(row.valueAt(i).value) ? 1 : 0;
                appendInt(list.next(), static_cast<long long>(count));
                for (std::size_t i = 0; i < row.size(); ++i) {
                    if (!valueIsNumeric(row.valueAt(i).value)) continue;
                    appendInt(list.next(), row.keyAt(i));
                    appendNumber(weights, row.valueAt(i).value, list.next());
                }
            }
            out_ += ";\n";
            p = end;
        }
    }

    void tupleStatement(const AttrSpec& attr, const Slot& slot, const std::string& path) {
        out_ += "\tsetAttr ";
        plugFlags(path);
        out_ += quoted("." + path) + " -type " + quoted(attr.typeName);
        ValueList list(out_);
        for (std::size_t c = 0; c < attr.children.size(); ++c) {
            const AttrSpec& child = *attr.children[c];
            const bool stored =
                slot.children && c < slot.children->size() && valueIsNumeric((*slot.children)[c].value);
            appendNumber(child, stored ? (*slot.children)[c].value : child.defaultValue, list.next());
        }
        out_ += ";\n";
    }

    void leafStatement(const AttrSpec& attr, const Value& value, const std::string& path) {
        if (!writableValue(attr, value)) return;
        out_ += "\tsetAttr ";
        plugFlags(path);
        out_ += quoted("." + path);
        const RawValue* raw = rawValue(attr, value, path);
        const std::string typeWord = raw ? raw->typeName : typeWordOf(attr, value);
        if (!typeWord.empty()) out_ += " -type " + quoted(typeWord);
        if (raw) {
            out_ += ' ';
            out_ += raw->text;
        } else {
            ValueList list(out_);
            appendValueText(attr, value, typeWord, list);
        }
        out_ += ";\n";
    }

    // The value as the file spelled it, while the plug still holds what was read.
    const RawValue* rawValue(const AttrSpec& attr, const Value& value, const std::string& path) const {
        if (!attr.madeUp || !info_) return nullptr;
        auto it = info_->rawValues.find(path);
        return it != info_->rawValues.end() && it->second.value == value ? &it->second : nullptr;
    }

    void plugFlags(const std::string& path) {
        auto it = flags_.find(path);
        if (it == flags_.end()) return;
        out_ += it->second;
        out_ += ' ';
        flags_.erase(it);
    }

    void aliases() {
        const auto& aliases = node_->aliases();
        if (aliases.empty()) return;
        out_ += "\tsetAttr \".aal\" -type \"attributeAlias\" {";
        for (std::size_t i = 0; i < aliases.size(); ++i) {
            if (i > 0) out_ += ',';
            appendQuoted(out_, aliases[i].first);
            out_ += ',';
            appendQuoted(out_, aliases[i].second);
        }
        out_ += "} ;\n";
    }

    // Flags the file set on plugs whose values are no longer written: kept on their own.
    void leftoverFlags() {
        if (!info_) return;
        for (const auto& [path, flags] : info_->plugFlags)
            if (flags_.count(path)) out_ += "\tsetAttr " + flags + " " + quoted("." + path) + ";\n";
    }

    const NodePtr& node_;
    const NodeFileInfo* info_;
    std::string& out_;
    std::vector<std::string>& problems_;
    std::unordered_map<std::string, std::string> flags_;
};

} // namespace

void appendNodeValues(const NodePtr& node, const NodeFileInfo* info, std::string& out,
                      std::vector<std::string>& problems) {
    NodeValueWriter(node, info, out, problems).run();
}

} // namespace host
