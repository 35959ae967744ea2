#include "engine/SceneChanges.h"

namespace host {

namespace {

// An item in or out of one of the scene's lists, at the place it was recorded.
template <class Item, std::size_t (Scene::*takeOut)(const Item&, std::size_t),
          void (Scene::*putBack)(const Item&, std::size_t)>
class Presence : public Change {
public:
    Presence(Item item, std::size_t index, bool inScene)
        : item_(std::move(item)), index_(index), inScene_(inScene) {}
    void swap(Scene& scene) override {
        if (inScene_)
            index_ = (scene.*takeOut)(item_, index_);
        else
            (scene.*putBack)(item_, index_);
        inScene_ = !inScene_;
    }

private:
    Item item_;
    std::size_t index_;
    bool inScene_;
};

using NodePresence = Presence<NodePtr, &Scene::takeNodeOut, &Scene::putNodeBack>;
using ConnectionPresence = Presence<Connection, &Scene::takeConnectionOut, &Scene::putConnectionBack>;

class ParentChange : public Change {
public:
    ParentChange(NodePtr child, Node* other, std::size_t position)
        : child_(std::move(child)), other_(other ? other->shared_from_this() : nullptr), position_(position) {
    }
    void swap(Scene&) override {
        NodePtr current = child_->parent() ? child_->parent()->shared_from_this() : nullptr;
        const std::size_t position = child_->childPosition();
        child_->setParent(other_.get(), position_);
        other_ = std::move(current);
        position_ = position;
        child_->touch();
    }

private:
    NodePtr child_;
    NodePtr other_;
    std::size_t position_;
};

class NameChange : public Change {
public:
    NameChange(NodePtr node, std::string other) : node_(std::move(node)), other_(std::move(other)) {}
    void swap(Scene& scene) override {
        std::string current = node_->name();
        scene.setNodeName(*node_, std::move(other_));
        other_ = std::move(current);
    }

private:
    NodePtr node_;
    std::string other_;
};

class SlotChange : public Change {
public:
    explicit SlotChange(const Plug& location) : location_(location) {
        const Slot* slot = location_.slot();
        present_ = slot || !location_.isElement();
        if (slot) other_ = slot->clone();
    }
    SlotChange(const Plug& location, Slot saved) : location_(location), other_(std::move(saved)) {}
    void swap(Scene&) override {
        // Changes are swapped in order, so the node is in the scene whenever its values are.
        Slot* slot = location_.isElement() ? location_.array().slotForWrite() : location_.slotForWrite();
        if (!slot) return;
        if (!location_.isElement()) {
            std::swap(*slot, other_);
        } else {
            SparseArray<Slot>& elements = slot->elementSlots();
            const uint32_t index = location_.logicalIndex();
            Slot* current = elements.find(index);
            const bool wasPresent = current != nullptr;
            Slot kept = current ? std::move(*current) : Slot();
            if (present_)
                elements.obtain(index) = std::move(other_);
            else if (wasPresent)
                elements.erase(index);
            present_ = wasPresent;
            other_ = std::move(kept);
        }
        location_.node()->touch();
    }

private:
    Plug location_;
    bool present_ = true;
    Slot other_;
};

// Swapped whole when the multi holds bare numbers, else element by element: the multi holds the same
// elements, all numbers, whenever this change is swapped, since the changes after it were swapped back first.
class NumbersChange : public Change {
public:
    NumbersChange(const Plug& array, std::vector<double> other) : array_(array), other_(std::move(other)) {}
    void swap(Scene&) override {
        Slot* slot = array_.slotForWrite();
        if (!slot || !slot->elements || slot->elements->size() != other_.size()) return;
        if (slot->elements->holdsNumbers())
            std::swap(slot->elements->numbers(), other_);
        else
            for (std::size_t position = 0; position < other_.size(); ++position)
                if (double* number = std::get_if<double>(&slot->elements->valueAt(position).value))
                    std::swap(*number, other_[position]);
        array_.node()->touch();
    }

private:
    Plug array_;
    std::vector<double> other_;
};

class MeshChange : public Change {
public:
    MeshChange(NodePtr node, std::shared_ptr<MeshData> other)
        : node_(std::move(node)), other_(std::move(other)) {}
    void swap(Scene&) override {
        node_->exchangeMesh(other_);
        node_->touch();
    }
    bool unchanged(const Scene&) const override { return std::as_const(*node_).mesh() == other_; }

private:
    NodePtr node_;
    std::shared_ptr<MeshData> other_;
};

class AliasChange : public Change {
public:
    AliasChange(NodePtr node, Node::AliasList other) : node_(std::move(node)), other_(std::move(other)) {}
    void swap(Scene&) override {
        node_->exchangeAliases(other_);
        node_->touch();
    }
    bool unchanged(const Scene&) const override { return std::as_const(*node_).aliases() == other_; }

private:
    NodePtr node_;
    Node::AliasList other_;
};

class AttrPresence : public Change {
public:
    AttrPresence(NodePtr node, const AttrSpec* attr, Node::DetachedAttr detached)
        : node_(std::move(node)), attr_(attr), detached_(std::move(detached)) {}
    void swap(Scene&) override {
        if (detached_.attr)
            node_->attachDynamicAttr(std::move(detached_));
        else
            detached_ = node_->detachDynamicAttr(attr_);
    }

private:
    NodePtr node_;
    const AttrSpec* attr_;
    Node::DetachedAttr detached_;
};

bool sameItems(const SelectionList& a, const SelectionList& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i].node != b[i].node || a[i].component != b[i].component || a[i].plug != b[i].plug)
            return false;
    return true;
}

class SelectionChange : public Change {
public:
    explicit SelectionChange(SelectionList other) : other_(std::move(other)) {}
    void swap(Scene& scene) override { scene.activeSelection().swap(other_); }
    bool unchanged(const Scene& scene) const override { return sameItems(scene.activeSelection(), other_); }

private:
    SelectionList other_;
};

class OptionVarsChange : public Change {
public:
    explicit OptionVarsChange(std::map<std::string, OptionValue> other) : other_(std::move(other)) {}
    void swap(Scene& scene) override { scene.optionVars().swap(other_); }
    bool unchanged(const Scene& scene) const override { return scene.optionVars() == other_; }

private:
    std::map<std::string, OptionValue> other_;
};

class TimeChange : public Change {
public:
    explicit TimeChange(double other) : other_(other) {}
    void swap(Scene& scene) override {
        const double current = scene.currentTime();
        scene.setCurrentTime(other_);
        other_ = current;
    }
    bool unchanged(const Scene& scene) const override { return scene.currentTime() == other_; }

private:
    double other_;
};

} // namespace

std::unique_ptr<Change> nodePresence(NodePtr node, std::size_t listIndex, bool inScene) {
    return std::make_unique<NodePresence>(std::move(node), listIndex, inScene);
}
std::unique_ptr<Change> parentChange(NodePtr child, Node* otherParent, std::size_t otherPosition) {
    return std::make_unique<ParentChange>(std::move(child), otherParent, otherPosition);
}
std::unique_ptr<Change> nameChange(NodePtr node, std::string otherName) {
    return std::make_unique<NameChange>(std::move(node), std::move(otherName));
}
std::unique_ptr<Change> connectionPresence(Connection connection, std::size_t index, bool inScene) {
    return std::make_unique<ConnectionPresence>(std::move(connection), index, inScene);
}
std::unique_ptr<Change> slotChange(const Plug& location) {
    return std::make_unique<SlotChange>(location);
}
std::unique_ptr<Change> slotChange(const Plug& location, Slot saved) {
    return std::make_unique<SlotChange>(location, std::move(saved));
}
std::unique_ptr<Change> numbersChange(const Plug& array, std::vector<double> other) {
    return std::make_unique<NumbersChange>(array, std::move(other));
}
std::unique_ptr<Change> meshChange(NodePtr node, std::shared_ptr<MeshData> other) {
    return std::make_unique<MeshChange>(std::move(node), std::move(other));
}
std::unique_ptr<Change> aliasChange(NodePtr node, Node::AliasList other) {
    return std::make_unique<AliasChange>(std::move(node), std::move(other));
}
std::unique_ptr<Change> attrPresence(NodePtr node, const AttrSpec* attr, Node::DetachedAttr detached) {
    return std::make_unique<AttrPresence>(std::move(node), attr, std::move(detached));
}
std::unique_ptr<Change> selectionChange(SelectionList other) {
    return std::make_unique<SelectionChange>(std::move(other));
}
std::unique_ptr<Change> optionVarsChange(std::map<std::string, OptionValue> other) {
    return std::make_unique<OptionVarsChange>(std::move(other));
}
std::unique_ptr<Change> timeChange(double other) {
    return std::make_unique<TimeChange>(other);
}

} // namespace host
