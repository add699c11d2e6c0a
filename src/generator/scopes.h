#pragma once

#include "generator/class_walks.h"
#include "generator/column_names.h"
#include "generator/emitter.h"
#include "generator/generation_settings.h"
#include "generator/type_rules.h"
#include "model/project.h"
#include "ports/messages.h"
#include "text/conversion.h"

// The facts that emitted lines are about, each with the words that such lines may use. A narrower scope knows all the
// words of the wider one. Scopes hold references alone and are made where they are needed.
namespace veldrane {

// A line about the project as a whole.
struct ProjectScope
{
    const TTCProject& Project;
    const GenerationSettings& Settings;
};

template <>
inline constexpr auto Vocabulary<ProjectScope> = std::to_array<Placeholder<ProjectScope>>({
    {"True", [](std::string& line, const ProjectScope&) { line += text::TrueText; }},
    {"False", [](std::string& line, const ProjectScope&) { line += text::FalseText; }},
    {"Push", [](std::string& line, const ProjectScope&) { line += kPushPrefix; }},
    {"Save", [](std::string& line, const ProjectScope&) { line += kSavePrefix; }},
    {"m:Boolean", [](std::string& line, const ProjectScope& s) { AppendVariablePrefix(line, s.Project, "Boolean"); }},
    {"m:Collection", [](std::string& line, const ProjectScope& s) { AppendVariablePrefix(line, s.Project, "Collection"); }},
    {"m:Long", [](std::string& line, const ProjectScope& s) { AppendVariablePrefix(line, s.Project, "Long"); }},
    {"m:Object", [](std::string& line, const ProjectScope& s) { AppendVariablePrefix(line, s.Project, "Object"); }},
    {"m:Other", [](std::string& line, const ProjectScope& s) { AppendVariablePrefix(line, s.Project, "Other"); }},
    {"m:String", [](std::string& line, const ProjectScope& s) { AppendVariablePrefix(line, s.Project, "String"); }},
    {"Ado", [](std::string& line, const ProjectScope& s) { line += s.Project.UseADOR ? "R" : "DB"; }},
    {"AppTitle", [](std::string& line, const ProjectScope& s) { line += s.Settings.AppTitle; }},
    {"ProjectName", [](std::string& line, const ProjectScope& s) { line += s.Project.ProjectName(); }},
    {"ConnectionString", [](std::string& line, const ProjectScope& s) { line += s.Project.ConnectionString(); }},
    {"LogDatabaseConnection", [](std::string& line, const ProjectScope& s) { line += s.Project.LogDatabaseConnection; }},
    {"LogTableName", [](std::string& line, const ProjectScope& s) { line += s.Project.LogTableName; }},
    {"VBProjectName", [](std::string& line, const ProjectScope& s) { line += s.Project.VBProjectName; }},
    {"VBProjectDescription", [](std::string& line, const ProjectScope& s) { line += s.Project.VBProjectDescription; }},
    {"ModulePrefix", [](std::string& line, const ProjectScope& s) { line += s.Project.ModulePrefix; }},
    {"ClassPrefix", [](std::string& line, const ProjectScope& s) { line += s.Project.ClassPrefix; }},
    {"WrapperClassName", [](std::string& line, const ProjectScope& s) { line += s.Project.WrapperClassName; }},
});

// A line about one of the project's classes, as the files that list classes have it.
struct ListedClassScope : ProjectScope
{
    const KZMClass& Class;
};

template <>
inline constexpr auto Vocabulary<ListedClassScope> = JoinVocabularies(std::to_array<Placeholder<ListedClassScope>>({
                                                                          {"ClassName", [](std::string& line, const ListedClassScope& s) { line += s.Class.ClassName; }},
                                                                          {"CollectionName", [](std::string& line, const ListedClassScope& s) { line += s.Class.CollectionName; }},
                                                                      }),
                                                                      InheritedVocabulary<ListedClassScope, ProjectScope>());

// What the writers of class modules work with.
struct GenerationContext : ProjectScope
{
    const KZMClasses& Classes;
    const ChildIndex& Children;
    Messages& Asking;
    std::string& ErrorText; // messages of the run, for whoever started it
};

// A line about a class. A writer may change the class on its way, where its rules say so.
struct ClassScope : GenerationContext
{
    KZMClass& Class;
};

template <>
inline constexpr auto Vocabulary<ClassScope> = JoinVocabularies(std::to_array<Placeholder<ClassScope>>({
                                                                    {"ClassName", [](std::string& line, const ClassScope& s) { line += s.Class.ClassName; }},
                                                                    {"CollectionName", [](std::string& line, const ClassScope& s) { line += s.Class.CollectionName; }},
                                                                    {"TableName", [](std::string& line, const ClassScope& s) { line += s.Class.TableName; }},
                                                                    {"Table", [](std::string& line, const ClassScope& s) { AppendBracketed(line, s.Class.TableName); }},
                                                                }),
                                                                InheritedVocabulary<ClassScope, ProjectScope>());

// A line about a property of the class.
struct PropertyScope : ClassScope
{
    TTCProperty& Property;
};

template <>
inline constexpr auto Vocabulary<PropertyScope> =
    JoinVocabularies(std::to_array<Placeholder<PropertyScope>>({
                         {"Scope", [](std::string& line, const PropertyScope& s) { line += s.Property.Scope; }},
                         {"PropertyName", [](std::string& line, const PropertyScope& s) { line += s.Property.PropertyName; }},
                         {"DataType", [](std::string& line, const PropertyScope& s) { line += s.Property.DataType; }},
                         {"FieldName", [](std::string& line, const PropertyScope& s) { line += s.Property.FieldName; }},
                         {"Col", [](std::string& line, const PropertyScope& s) { AppendBracketed(line, s.Property.FieldName); }},
                         {"Ref", [](std::string& line, const PropertyScope& s) { AppendColumnReference(line, s.Property.FieldName); }},
                         {"m:DataType", [](std::string& line, const PropertyScope& s) { AppendVariablePrefix(line, s.Project, s.Property.DataType); }},
                         {"FieldAlias", [](std::string& line, const PropertyScope& s) { line += s.Property.FieldAlias; }},
                         {"F", [](std::string& line, const PropertyScope& s) { AppendFieldReference(line, s.Property.FieldReference); }},
                         {"adoRS:F", [](std::string& line, const PropertyScope& s) { AppendQualifiedFieldReference(line, s.Property.FieldReference); }},
                         {"Empty", [](std::string& line, const PropertyScope& s) { line += DefaultValueForType(s.Property.DataType, s.Property.FieldDataType == kGuidFieldType); }},
                         {"NullValue", [](std::string& line, const PropertyScope& s) { line += DefaultValueForType(s.Property.DataType, false); }},
                         {"MaxLength", [](std::string& line, const PropertyScope& s) { line += std::to_string(s.Property.MaxLength); }},
                         {"FormatStringOnGet", [](std::string& line, const PropertyScope& s) { line += s.Property.FormatStringOnGet; }},
                         {"FormatStringOnLet", [](std::string& line, const PropertyScope& s) { line += s.Property.FormatStringOnLet; }},
                     }),
                     InheritedVocabulary<PropertyScope, ClassScope>());

// A line about one of the class's methods.
struct MethodScope : ClassScope
{
    const TTCMethod& Method;
    const std::string& Arguments; // the text between the parentheses of its first line
};

template <>
inline constexpr auto Vocabulary<MethodScope> = JoinVocabularies(std::to_array<Placeholder<MethodScope>>({
                                                                     {"Scope", [](std::string& line, const MethodScope& s) { line += s.Method.Scope; }},
                                                                     {"MethodName", [](std::string& line, const MethodScope& s) { line += s.Method.MethodName; }},
                                                                     {"Arguments", [](std::string& line, const MethodScope& s) { line += s.Arguments; }},
                                                                     {"ReturnDataType", [](std::string& line, const MethodScope& s) { line += s.Method.ReturnDataType; }},
                                                                 }),
                                                                 InheritedVocabulary<MethodScope, ClassScope>());

// A line about a field that a lookup property brings in.
struct LookupFieldScope : PropertyScope
{
    TTCLookupField& L;
};

// The name by which a lookup's field is read from a row.
[[nodiscard]] inline const std::string& NameInResult(const TTCLookupField& field)
{
    return field.FieldAlias.empty() ? field.FieldName : field.FieldAlias;
}

template <>
inline constexpr auto
    Vocabulary<LookupFieldScope> = JoinVocabularies(std::to_array<Placeholder<LookupFieldScope>>({
                                                        {"L.PropertyName", [](std::string& line, const LookupFieldScope& s) { line += s.L.PropertyName; }},
                                                        {"L.FieldDataType", [](std::string& line, const LookupFieldScope& s) { line += s.L.FieldDataType; }},
                                                        {"m:L.FieldDataType", [](std::string& line, const LookupFieldScope& s) { AppendVariablePrefix(line, s.Project, s.L.FieldDataType); }},
                                                        {"L.F", [](std::string& line, const LookupFieldScope& s) { AppendFieldReference(line, NameInResult(s.L)); }},
                                                        {"adoRS:L.F", [](std::string& line, const LookupFieldScope& s) { AppendQualifiedFieldReference(line, NameInResult(s.L)); }},
                                                        {"L.Empty", [](std::string& line, const LookupFieldScope& s) { line += DefaultValueForType(s.L.FieldDataType, false); }},
                                                    }),
                                                    InheritedVocabulary<LookupFieldScope, PropertyScope>());

// A line about a child class of the class.
struct ChildScope : ClassScope
{
    KZMClass& C;
};

template <>
inline constexpr auto Vocabulary<ChildScope> = JoinVocabularies(std::to_array<Placeholder<ChildScope>>({
                                                                    {"C.ClassName", [](std::string& line, const ChildScope& s) { line += s.C.ClassName; }},
                                                                    {"C.CollectionName", [](std::string& line, const ChildScope& s) { line += s.C.CollectionName; }},
                                                                }),
                                                                InheritedVocabulary<ChildScope, ClassScope>());

using ProjectEmitter = Emitter<ProjectScope>;
using ListedClassEmitter = Emitter<ListedClassScope>;
using ClassEmitter = Emitter<ClassScope>;
using MethodEmitter = Emitter<MethodScope>;
using PropertyEmitter = Emitter<PropertyScope>;
using LookupFieldEmitter = Emitter<LookupFieldScope>;
using ChildEmitter = Emitter<ChildScope>;

// Calls `body` with an emitter of lines about each child class, in collection order.
template <class Body>
void ForEachChild(const ClassEmitter& emit, Body&& body)
{
    for (KZMClass* child : emit.Scope().Children.Of(emit.Scope().Class.ClassName)) {
        const ChildScope scope{emit.Scope(), *child};
        body(emit.About(scope));
    }
}

// The same for each property of the class.
template <class Body>
void ForEachProperty(const ClassEmitter& emit, Body&& body)
{
    for (TTCProperty& property : emit.Scope().Class.TTCProperties) {
        const PropertyScope scope{emit.Scope(), property};
        body(emit.About(scope));
    }
}

// The same for each property behind a column of the primary key, in the order of the key's columns.
template <class Body>
void ForEachPrimaryKeyProperty(const ClassEmitter& emit, Body&& body)
{
    for (const ColumnProperty& found : PropertiesBehindKey(emit.Scope().Class, key_type::kPrimaryKey)) {
        const PropertyScope scope{emit.Scope(), *found.Property};
        body(emit.About(scope));
    }
}

// The same for each lookup field of the property.
template <class Body>
void ForEachLookupField(const PropertyEmitter& emit, Body&& body)
{
    for (TTCLookupField& field : emit.Scope().Property.TTCLookupFields) {
        const LookupFieldScope scope{emit.Scope(), field};
        body(emit.About(scope));
    }
}

// Whether the class has a property or an event of the name; letter case does not count.
[[nodiscard]] inline bool HasProperty(const ClassScope& scope, std::string_view name)
{
    return scope.Class.TTCProperties.Contains(name);
}

[[nodiscard]] inline bool HasEvent(const ClassScope& scope, std::string_view name)
{
    return scope.Class.TTCEvents.Contains(name);
}

// Whether the class stands under no other.
[[nodiscard]] inline bool IsTopLevel(const KZMClass& owner)
{
    return owner.ParentClassName.empty();
}

// Whether the class's collection tells of what is added to it. A top-level one never does.
[[nodiscard]] inline bool RaisesRecordAdded(const ClassScope& scope)
{
    return !IsTopLevel(scope.Class) && HasEvent(scope, "RecordAdded");
}

[[nodiscard]] inline bool HasChildren(const ClassScope& scope)
{
    return !scope.Children.Of(scope.Class.ClassName).empty();
}

} // namespace veldrane
