#include "Feature/FeatureBase.h"

#include "Feature/FeatureGroup.h"
#include "FreshId.h"
#include "LazyText.h"

namespace keo::Feature {

FeatureBase::FeatureBase(std::optional<std::uint64_t> id)
    : id_(id ? *id : detail::freshId()) {}

FeatureBase::FeatureBase(const FeatureBase& other)
    : id_(detail::freshId())
    , name_(other.name_)
    , show_(other.show_) {
    storeDescription(other.getDescription());
}

FeatureBase& FeatureBase::operator=(const FeatureBase& other) {
    if (this != &other) {
        name_ = other.name_;
        storeDescription(other.getDescription());
        show_ = other.show_;
    }
    markContentReplaced();
    return *this;
}

FeatureBase::~FeatureBase() = default;

bool FeatureBase::isGroup() const {
    return false;
}

void FeatureBase::setName(const std::string& name) {
    if (name_ == name) {
        return;
    }
    name_ = name;
    markContentReplaced();
}

const std::string& FeatureBase::getDescription() const noexcept {
    return detail::textIn(description_);
}

void FeatureBase::storeDescription(const std::string& description) {
    detail::storeText(description_, description);
}

void FeatureBase::setDescription(const std::string& description) {
    if (getDescription() == description) {
        return;
    }
    storeDescription(description);
    markContentReplaced();
}

void FeatureBase::setShow(bool show) {
    if (show_ == show) {
        return;
    }
    show_ = show;
    markChanged(ShowChanged);
}

bool FeatureBase::isShowing() const noexcept {
    // Iterative walk up the parent chain: deep trees never recurse.
    for (const FeatureBase* node = this; node != nullptr; node = node->parent_) {
        if (!node->show_) {
            return false;
        }
    }
    return true;
}

std::shared_ptr<Layer> FeatureBase::getLayer() {
    FeatureGroup* node = isGroup() ? static_cast<FeatureGroup*>(this) : parent_;
    if (node == nullptr) {
        return nullptr;
    }
    while (node->getParent() != nullptr) {
        node = node->getParent();
    }
    return node->_getSelfLayer();
}

const Layer* FeatureBase::getLayer() const {
    return const_cast<FeatureBase*>(this)->getLayer().get();
}

void FeatureBase::markChanged(FeatureChangeType type) noexcept {
    if (status_ == FeatureStatus::None) {
        changeType_ |= type;
        status_ = FeatureStatus::Modified;
    }
}

void FeatureBase::markChangedAlways(FeatureChangeType type) noexcept {
    changeType_ |= type;
    if (status_ == FeatureStatus::None) {
        status_ = FeatureStatus::Modified;
    }
}

void FeatureBase::markContentReplaced() noexcept {
    if (status_ == FeatureStatus::None) {
        status_ = FeatureStatus::Modified;
        changeType_ = ContentChanged;
    }
}

} // namespace keo::Feature
