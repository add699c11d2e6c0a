#include "preview/preview_emitter.h"
#include "preview/views.h"

#include <algorithm>
#include <array>
#include <span>

namespace veldrane {
namespace {

void AddSections(const View& view, std::span<const SectionWriter> sections)
{
    for (const SectionWriter section : sections)
        view.Blocks.push_back(view.Source.Generation.WriteSection(section, *view.Node.Class, view.Source.Classes));
}

struct ProjectPart
{
    NodeType Type;
    TemplateLine<ProjectScope> Heading;
    std::string_view HeadingIcon;
    TemplateLine<ProjectScope> FileName;
    std::string_view FileNameIcon;
    bool BlankLine; // between the file's name and its text
    TTCOutputs (*Write)(const PreviewSource& source);
};

constexpr auto kProjectParts = std::to_array<ProjectPart>({
    {NodeType::GlobalsModule, "Required: Global Module", preview_icon::kModule, "Globals File Name: {ModulePrefix}Globals.bas", "", false,
     [](const PreviewSource& source) { return source.Generation.GenerateGlobalsBasFile(); }},
    {NodeType::WrapperClass, "Required Wrapper Class: {WrapperClassName}", preview_icon::kClass, "File Name: {ClassPrefix}{WrapperClassName}.cls", preview_icon::kFile, false,
     [](const PreviewSource& source) { return source.Generation.GenerateWrapperClass(source.Classes); }},
    {NodeType::ProjectFile, "Required Visual Basic Project: {VBProjectName}", preview_icon::kRoot, "FileName: {VBProjectName}.vbp", preview_icon::kFile, true,
     [](const PreviewSource& source) { return source.Generation.GenerateProjectFile(source.Classes); }},
    {NodeType::TestProjectFile, "Required Visual Basic Test Project", preview_icon::kRoot, "FileName: Test{VBProjectName}.vbp", preview_icon::kFile, true,
     [](const PreviewSource& source) { return source.Generation.GenerateTestProjectFile(source.Classes); }},
    {NodeType::TestProjectGroup, "Required Visual Basic Test Project Group", preview_icon::kRoot, "FileName: Test{VBProjectName}.vbg", preview_icon::kFile, true,
     [](const PreviewSource& source) { return source.Generation.GenerateTestProjectGroup(); }},
});

} // namespace

void ShowClass(const View& view)
{
    const KZMClass& item = *view.Node.Class;
    const ListedClassScope scope{view.Scope(), item};
    const PreviewEmitter<ListedClassScope> emit(view.AddBlock(), scope);
    if (item.IsMTSRequiredClass) {
        emit("Required Class: {ClassName}", LineClass::Head, preview_icon::kClass);
    } else {
        emit("Preview Class Module Code", LineClass::Head);
        emit("Class Name: {ClassName}", LineClass::Head, item.TableName.empty() ? preview_icon::kClass : preview_icon::kTableClass);
    }
    emit("FileName: {ClassPrefix}{ClassName}.cls", preview_icon::kFile);
    AddSections(view, CodeGeneration::ClassSections());
}

void ShowCollection(const View& view)
{
    const KZMClass& item = *view.Node.Class;
    const ListedClassScope scope{view.Scope(), item};
    const PreviewEmitter<ListedClassScope> emit(view.AddBlock(), scope);
    if (item.IsMTSRequiredClass) {
        emit("Required Collection: {CollectionName}", LineClass::Head, preview_icon::kCollection);
    } else {
        emit("Preview Collection Module Code", LineClass::Head);
        emit("Collection Name: {CollectionName}", LineClass::Head, preview_icon::kCollection);
    }
    emit("FileName: {ClassPrefix}{CollectionName}.cls", preview_icon::kFile);
    AddSections(view, CodeGeneration::CollectionSections());
}

void ShowProjectPart(const View& view)
{
    const auto* const part = std::find_if(kProjectParts.begin(), kProjectParts.end(), [&](const ProjectPart& row) { return row.Type == view.Node.Type; });
    const ProjectScope scope = view.Scope();
    const PreviewEmitter<ProjectScope> emit(view.AddBlock(), scope);
    emit(part->Heading, LineClass::Head, part->HeadingIcon);
    emit(part->FileName, part->FileNameIcon);
    if (part->BlankLine)
        emit("");
    view.Blocks.push_back(part->Write(view.Source));
}

} // namespace veldrane
