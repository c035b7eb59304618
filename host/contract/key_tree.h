#ifndef KELMORA_HOST_CONTRACT_KEY_TREE_H
#define KELMORA_HOST_CONTRACT_KEY_TREE_H

#include "host/contract/pointer.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A contract's keys as they stand in a document: members in their object, the element ("*") in its list.
template <class Key> struct KeyTree {
    std::string name;         ///< "*" for the element of a list; of the root empty
    std::string path;         ///< as in the contract
    const Key *key = nullptr; ///< of the root NULL, and of an object whose members alone are in the contract
    std::vector<KeyTree> children;

    /// The child of this name, or NULL.
    [[nodiscard]] const KeyTree *find(std::string_view child) const
    {
        for (const KeyTree &each : children) {
            if (each.name == child)
                return &each;
        }
        return nullptr;
    }

    /// The element of a list; NULL when nothing is known of it, or when it is no list.
    [[nodiscard]] const KeyTree *element() const { return find("*"); }

    /// Whether it has members.
    [[nodiscard]] bool has_members() const { return !children.empty() && element() == nullptr; }
};

/// The tree of a contract's keys, which it refers to. The keys of one object stay in their order.
template <class Key> [[nodiscard]] KeyTree<Key> key_tree(const std::vector<Key> &keys)
{
    KeyTree<Key> root;
    for (const Key &key : keys) {
        KeyTree<Key> *place = &root;
        for (const std::string &token : tokens_of(key.path)) {
            KeyTree<Key> *child = const_cast<KeyTree<Key> *>(place->find(token));
            if (child == nullptr) {
                std::string path = place->path;
                path.append("/").append(token);
                place->children.push_back({token, std::move(path), nullptr, {}});
                child = &place->children.back();
            }
            place = child;
        }
        place->path = key.path;
        place->key = &key;
    }
    return root;
}

/// The key's place in the tree, or NULL when it is not there.
template <class Key> [[nodiscard]] const KeyTree<Key> *find(const KeyTree<Key> &tree, std::string_view path)
{
    const KeyTree<Key> *place = &tree;
    for (const std::string &token : tokens_of(path)) {
        place = place->find(token);
        if (place == nullptr)
            return nullptr;
    }
    return place;
}

} // namespace kelmora_host

#endif
