#include "Support/PreviewAssets.h"

#include <utility>

namespace quillmar {

std::string PreviewAssets::add(Data data, std::string_view typeIdentifier) {
    return add(std::make_shared<const Data>(std::move(data)), typeIdentifier);
}

std::string PreviewAssets::add(std::shared_ptr<const Data> data, std::string_view typeIdentifier) {
    std::string name = "asset-" + std::to_string(attachments_.size());
    std::string reference = "cid:" + name;
    attachments_.emplace(std::move(name), Attachment{std::move(data), std::string(typeIdentifier)});
    return reference;
}

std::optional<std::string> PreviewAssets::addIcon(std::optional<Data> icon) {
    if (!icon) return std::nullopt;
    return add(std::move(*icon), "public.png");
}

std::optional<std::string> PreviewAssets::typeIcon(std::string_view identifier) {
    const auto [source, isNew] = sources_.try_emplace("type:" + std::string(identifier));
    if (isNew && icons_ != nullptr) source->second = addIcon(icons_->iconForType(identifier));
    return source->second;
}

std::optional<std::string> PreviewAssets::fileIcon(const FileURL& url, std::string_view fallbackType) {
    if (fileIconBudget_ < 1) return typeIcon(fallbackType);
    --fileIconBudget_;
    const auto [source, isNew] = sources_.try_emplace("file:" + url.path());
    if (isNew && icons_ != nullptr) source->second = addIcon(icons_->iconForFile(url));
    return source->second ? source->second : typeIcon(fallbackType);
}

} // namespace quillmar
