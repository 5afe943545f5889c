#include "zarnic/platform/foundation/Property.h"

#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

std::string join(std::string_view type, std::string_view marks, std::string_view field) {
    std::string text("T");
    text.append(type);
    if (!marks.empty())
        text.append(",").append(marks);
    text += ",N";
    if (!field.empty())
        text.append(",V").append(field);
    return text;
}

[[noreturn]] void throwUnfit(const NSObject& object, const std::string& name,
                             const std::string& type, const Value& value) {
    throw NSException(NSInvalidArgumentException, object.runtimeClass().name() + "." + name +
                                                      " of type " + type + " cannot hold " +
                                                      value.description());
}

}  // namespace

Field::Field(std::string name, std::string type, Accessor accessor)
    : name_(std::move(name)), type_(std::move(type)), accessor_(accessor) {}

void Field::set(NSObject& object, const Value& value) const {
    if (!accessor_.set(object, value))
        throwUnfit(object, name_, type_, value);
}

Property::Property(std::string name, std::string type, std::string_view marks,
                   std::string_view field, Accessor accessor)
    : name_(std::move(name)),
      lowercaseName_(lowercaseString(name_)),
      type_(std::move(type)),
      attributes_(join(type_, marks, field)),
      accessor_(accessor) {}

std::optional<std::string_view> Property::declaredClassName() const {
    const std::string_view type = type_;
    if (!type.starts_with("@\""))
        return std::nullopt;
    return type.substr(2, type.size() - 3);
}

void Property::set(NSObject& object, const Value& value) const {
    if (readOnly())
        throw NSException(NSInvalidArgumentException,
                          object.runtimeClass().name() + "." + name_ + " is read-only");
    if (!accessor_.set(object, value))
        throwUnfit(object, name_, type_, value);
}

Member::Member(std::string_view name, std::string type, std::string marks)
    : name_(name), type_(std::move(type)), marks_(std::move(marks)) {}

Member Member::as(std::string_view className) {
    type_ = detail::quotedType(std::string(className).c_str());
    return *this;
}

void Member::moveTo(std::vector<Field>& fields, std::vector<Property>& properties) {
    const std::string fieldName = property_ ? "_" + name_ : name_;
    if (field_)
        fields.emplace_back(fieldName, type_, *field_);
    if (!property_)
        return;
    if (property_->set == nullptr)
        marks_.insert(0, marks_.empty() ? "R" : "R,");
    properties.emplace_back(name_, type_, marks_, field_ ? fieldName : "", *property_);
}

}  // namespace zn
