#include "platform/foundation/archives/ContainerFiller.h"

#include <algorithm>

namespace zn {

Array ContainerFiller::array(Mutability form) {
    return Array(Array::Storage::create(form));
}

Dictionary ContainerFiller::dictionary(Mutability form, std::size_t capacity) {
    return Dictionary(Dictionary::Storage::create(form, capacity));
}

Dictionary ContainerFiller::immutableDictionary(const KeyTable& keys, std::span<Value> values) {
    auto* storage = Dictionary::Storage::create(Mutability::Immutable, values.size());
    storage->appendMoved(values);
    storage->keys = keys;
    storage->present = values.size();
    return Dictionary(storage);
}

void ContainerFiller::add(const Array& array, Value item) {
    requirePresent(item);
    array.storage_->append(std::move(item));
}

void ContainerFiller::set(const Dictionary& dictionary, std::string_view key, Value value) {
    requirePresent(value);
    auto& storage = *dictionary.storage_;
    if (storage.count == storage.capacity)
        storage.reserve(std::max<std::size_t>(4, storage.capacity * 2));
    const std::size_t slot = storage.keys.add(key);
    if (slot == storage.count) {
        storage.append(std::move(value));
        ++storage.present;
    } else {
        storage.values[slot] = std::move(value);
    }
}

void ContainerFiller::clear(const Value& container) {
    if (container.isArray()) {
        const auto items = container.array().storage_->takeAll();
        return;
    }
    auto& storage = *container.dictionary().storage_;
    for (std::size_t slot = 0; slot < storage.count; ++slot)
        const Value value = std::exchange(storage.values[slot], {});
    storage.present = 0;
}

const void* ContainerFiller::identity(const Value& container) {
    if (container.isArray())
        return container.array().storage_;
    return container.isDictionary() ? container.dictionary().storage_ : nullptr;
}

}  // namespace zn
