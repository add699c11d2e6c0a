#include "projectfile/class_reader.h"

#include "projectfile/block_reader.h"
#include "projectfile/line_cursor.h"
#include "projectfile/value_tables.h"
#include "text/case_folding.h"
#include "text/characters.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace veldrane {

using namespace project_format;
using text::LineStartsWith;

namespace {

// From the first "Begin Classes" to behind the first "End Classes", in whatever letters and wherever in a line they
// stand.
std::string_view ClassSection(std::string_view text)
{
    constexpr std::string_view kBegin = "Begin Classes";
    constexpr std::string_view kEnd = "End Classes";
    const std::size_t begin = text::FindFolded(text, kBegin);
    const std::size_t end = text::FindFolded(text, kEnd);
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin)
        throw RuntimeError(error_number::kInvalidCall, "TTCFileManagement",
                           "The file has no whole section of classes: it does not go from a line 'Begin Classes' to a "
                           "line 'End Classes'.");
    return text.substr(begin, end + kEnd.size() - begin);
}

class ClassesReader
{
  public:
    ClassesReader(LineCursor& lines, TTCProject& project, KZMClasses& classes, const FileProgress& progress)
        : lines_(lines), project_(project), classes_(classes), progress_(progress)
    {}

    // Whether each class has come to its end.
    bool Read()
    {
        try {
            for (; lines_.Current() != "End Classes"; lines_.Advance())
                ReadBlocks();
        } catch (const RuntimeError& error) {
            throw RuntimeError(error.Number, error.Source, Place() + error.Description());
        }
        return !isUnderWay_ && !lost_;
    }

  private:
    // The tests follow each other on the line where the block before has ended, so that one pass may read several.
    void ReadBlocks()
    {
        struct Block
        {
            std::string_view Opening;
            void (*Read)(LineCursor& lines, KZMClass& owner);
        };
        constexpr auto kBlocks = std::to_array<Block>({
            {"Begin Relationship ", ReadRelationship},
            {"Begin Key ", ReadKey},
            {"Begin Method ", ReadMethod},
            {"Begin Event ", ReadEvent},
            {"Begin Property", ReadProperty},
        });
        if (LineStartsWith(lines_.Current(), "Begin Class "))
            BeginClass();
        for (const Block& block : kBlocks)
            if (LineStartsWith(lines_.Current(), block.Opening))
                block.Read(lines_, *class_);
        if (LineStartsWith(lines_.Current(), "End Class "))
            EndClass();
    }

    // What a failure names: the class under way, where there is one.
    [[nodiscard]] std::string Place() const
    {
        constexpr std::size_t kShownLength = 60;
        if (class_->ClassName.empty())
            return "";
        return "class '" + std::string(text::Left(class_->ClassName, kShownLength)) + "': ";
    }

    // Reads the class's own value lines: they end at its first block.
    void BeginClass()
    {
        constexpr std::size_t kNamePosition = 13;
        lost_ = lost_ || isUnderWay_;
        isUnderWay_ = true;
        class_ = std::make_shared<KZMClass>();
        class_->ClassName = text::From(lines_.Current(), kNamePosition);
        for (lines_.Advance();
             !LineStartsWith(lines_.Current(), "End Class ") && !LineStartsWith(lines_.Current(), "Begin");
             lines_.Advance())
            ReadValueLine(lines_.Current(), *class_, kClassLines);
    }

    void EndClass()
    {
        project_.ClassCollectionNames.Add(class_->ClassName, class_->ClassName);
        if (class_->CreateCollection)
            project_.ClassCollectionNames.Add(class_->CollectionName, class_->CollectionName);
        classes_.AddExisting(class_, class_->ClassName);
        isUnderWay_ = false;
        class_ = std::make_shared<KZMClass>();
        progress_.SavingProject.Raise(static_cast<std::int32_t>(lines_.Count() + lines_.Position()));
    }

    LineCursor& lines_;
    TTCProject& project_;
    KZMClasses& classes_;
    const FileProgress& progress_;
    std::shared_ptr<KZMClass> class_ = std::make_shared<KZMClass>();
    bool isUnderWay_ = false;
    bool lost_ = false; // one that had not ended when the next began
};

} // namespace

bool ReadClassInfo(LineStream& stream, TTCProject& project, KZMClasses& classes, const FileProgress& progress)
{
    constexpr std::size_t kLinesWithoutClass = 2;
    const std::string_view rest = stream.ReadAll();
    progress.SavingProject.Raise(50);
    LineCursor lines(ClassSection(rest), stream.LineEnd());
    if (lines.Count() <= kLinesWithoutClass)
        return true;
    const auto count = static_cast<std::int32_t>(lines.Count());
    // The bar starts half way: reading the text was the first half.
    progress.SetMinMaxProgress.Raise(1, count * 2, count);
    return ClassesReader(lines, project, classes, progress).Read();
}

} // namespace veldrane
