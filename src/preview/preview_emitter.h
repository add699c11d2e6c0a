#pragma once

#include "generator/emitter.h"

#include <string_view>
#include <type_traits>

namespace veldrane {

// The small pictures beside lines that only the preview has.
namespace preview_icon {
inline constexpr std::string_view kRoot = "Root";
inline constexpr std::string_view kProject = "Project";
inline constexpr std::string_view kFile = "File";
inline constexpr std::string_view kModule = "Module";
inline constexpr std::string_view kClass = "Class";
inline constexpr std::string_view kTableClass = "TableClass";
inline constexpr std::string_view kCollection = "Collection";
inline constexpr std::string_view kClosedFolder = "ClosedFolder";
inline constexpr std::string_view kFieldAuto = "FieldAuto";
inline constexpr std::string_view kFieldKey = "FieldKey";
inline constexpr std::string_view kSave = "Save";
inline constexpr std::string_view kVariables = "Variables";
inline constexpr std::string_view kMTS = "MTS";
inline constexpr std::string_view kForm = "Form";
inline constexpr std::string_view kDSN = "DSN";
} // namespace preview_icon

// Emits lines about one scope, as Emitter does, with a picture beside any of them.
template <class ScopeType>
class PreviewEmitter
{
  public:
    // Both must outlive the emitter.
    PreviewEmitter(TTCOutputs& lines, const ScopeType& scope) : emit_(lines, scope) {}
    PreviewEmitter(TTCOutputs& lines, const ScopeType&& scope) = delete;

    void operator()(const TemplateLine<std::type_identity_t<ScopeType>>& line, LineClass lineClass = LineClass::Code, std::string_view icon = {}) const
    {
        emit_.Lines().Add(emit_.Text(line), lineClass).Icon = icon;
    }

    void operator()(const TemplateLine<std::type_identity_t<ScopeType>>& line, std::string_view icon) const { (*this)(line, LineClass::Code, icon); }

    // An emitter of lines about something else, into the same list.
    template <class Other>
    [[nodiscard]] PreviewEmitter<Other> About(const Other& scope) const
    {
        return PreviewEmitter<Other>(emit_.Lines(), scope);
    }
    template <class Other>
    PreviewEmitter<Other> About(const Other&& scope) const = delete;

    [[nodiscard]] const ScopeType& Scope() const { return emit_.Scope(); }

  private:
    Emitter<ScopeType> emit_;
};

} // namespace veldrane
