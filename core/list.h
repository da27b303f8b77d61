// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

#pragma once

#include <cstdint>

namespace sonimbra {

/// A doubly linked list with singly allocated nodes. Not thread-safe.
template <class T>
class list {
    struct SNode {
        SNode* next;
        SNode* prev;
        T element;
    };

public:
    class iterator {
    public:
        T& operator*() const { return node->element; }
        iterator& operator++() {
            node = node->next;
            return *this;
        }
        bool operator==(const iterator& other) const { return node == other.node; }
        bool operator!=(const iterator& other) const { return node != other.node; }

    private:
        friend class list;
        explicit iterator(SNode* n) : node(n) {}
        SNode* node;
    };

    list() = default;
    list(const list&) = delete;
    list& operator=(const list&) = delete;
    ~list() {
        while (first != nullptr) {
            erase(begin());
        }
    }

    iterator begin() const { return iterator(first); }
    iterator end() const { return iterator(nullptr); }
    bool empty() const { return first == nullptr; }
    std::uint32_t getSize() const { return size; }

    void push_back(const T& element) { link(new SNode{nullptr, nullptr, element}); }

    /// Removes the element and returns an iterator to the one that follows.
    iterator erase(iterator it) {
        SNode* node = it.node;
        const iterator following = unlink(node);
        delete node;
        return following;
    }

    /// Moves the element's node to the end of another list, without allocating. Returns an iterator
    /// to the one that follows here.
    iterator moveToEndOf(list& other, iterator it) {
        const iterator following = unlink(it.node);
        other.link(it.node);
        return following;
    }

private:
    void link(SNode* node) {
        node->next = nullptr;
        node->prev = last;
        (last != nullptr ? last->next : first) = node;
        last = node;
        ++size;
    }

    iterator unlink(SNode* node) {
        (node->prev != nullptr ? node->prev->next : first) = node->next;
        (node->next != nullptr ? node->next->prev : last) = node->prev;
        --size;
        return iterator(node->next);
    }

    SNode* first = nullptr;
    SNode* last = nullptr;
    std::uint32_t size = 0;
};

} // namespace sonimbra
