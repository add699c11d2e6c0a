#include "shell/define_plan.h"

#include "shell/named_argument.h"
#include "text/case_folding.h"

#include <algorithm>
#include <optional>
#include <set>
#include <unordered_map>

namespace veldrane {
namespace {

constexpr std::string_view kTable = "TABLE";
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

class Planner
{
  public:
    Planner(const std::vector<CatalogTable>& tables, const RelatedTables& relatedTables)
        : tables_(tables), relatedTables_(relatedTables), slots_(tables.size()), parents_(tables.size(), kNone)
    {
        for (std::size_t i = 0; i < tables.size(); ++i)
            AddName(tables[i].Name, i);
        // A name as it is listed goes before the same one with a schema.
        for (std::size_t i = 0; i < tables.size(); ++i)
            if (!tables[i].WithSchema.empty())
                AddName(tables[i].WithSchema, i);
    }

    DefinePlan Plan(const DefineRequest& request)
    {
        for (const std::string& lookup : request.Lookups)
            Place(lookup, "", PlannedPlace::Lookup);
        for (const std::string& table : request.Tables)
            PlaceTable(table);
        if (request.All)
            PlaceAll();
        LinkParents();
        BreakCircles();
        for (std::size_t i = 0; i < slots_.size(); ++i)
            Emit(i);
        return std::move(plan_);
    }

  private:
    void AddName(const std::string& name, std::size_t index)
    {
        exact_.try_emplace(name, index);
        folded_.try_emplace(text::Fold(name), index);
    }

    std::optional<std::size_t> Find(const std::string& name) const
    {
        if (const auto found = exact_.find(name); found != exact_.end())
            return found->second;
        if (const auto found = folded_.find(text::Fold(name)); found != folded_.end())
            return found->second;
        return std::nullopt;
    }

    void PlaceTable(const std::string& argument)
    {
        const auto [name, parent] =
            SplitAtName(argument, [this](const std::string& table) { return Find(table).has_value(); });
        Place(name, parent, PlannedPlace::Child);
    }

    // A child of nobody is a root.
    void Place(const std::string& name, const std::string& parent, PlannedPlace place)
    {
        const std::optional<std::size_t> index = Find(name);
        if (!index)
            return plan_.Unknown.push_back(name);
        const bool child = place == PlannedPlace::Child && !parent.empty();
        slots_[*index] = PlannedClass{.TableName = tables_[*index].Name,
                                      .IsView = tables_[*index].Type != kTable,
                                      .Place = place == PlannedPlace::Child && !child ? PlannedPlace::Root : place,
                                      .Parent = parent};
    }

    void PlaceAll()
    {
        std::vector<std::size_t> added;
        for (std::size_t i = 0; i < tables_.size(); ++i)
            if (!slots_[i] && tables_[i].Type == kTable) {
                slots_[i] = PlannedClass{.TableName = tables_[i].Name, .Parent = {}};
                added.push_back(i);
            }
        for (const std::size_t i : added)
            if (const std::optional<std::size_t> parent = OnlyParent(i)) {
                slots_[i]->Place = PlannedPlace::Child;
                slots_[i]->Parent = tables_[*parent].Name;
            }
    }

    std::optional<std::size_t> OnlyParent(std::size_t table) const
    {
        std::set<std::size_t> reached;
        for (const std::string& name : relatedTables_(tables_[table].Name))
            if (const std::optional<std::size_t> related = Find(name); related && *related != table &&
                                                                       slots_[*related] && !slots_[*related]->IsView &&
                                                                       slots_[*related]->Place != PlannedPlace::Lookup)
                reached.insert(*related);
        return reached.size() == 1 ? std::optional(*reached.begin()) : std::nullopt;
    }

    void LinkParents()
    {
        for (std::size_t i = 0; i < slots_.size(); ++i)
            if (slots_[i] && slots_[i]->Place == PlannedPlace::Child)
                if (const std::optional<std::size_t> parent = Find(slots_[i]->Parent)) {
                    slots_[i]->Parent = tables_[*parent].Name;
                    parents_[i] = slots_[*parent] ? *parent : kNone;
                }
    }

    // In the catalog's order, so that the first table of a circle is the one that is met first.
    void BreakCircles()
    {
        enum class Mark : unsigned char
        {
            New,
            OnPath,
            Done,
        };
        std::vector<Mark> marks(slots_.size(), Mark::New);
        for (std::size_t start = 0; start < slots_.size(); ++start) {
            std::vector<std::size_t> path;
            std::size_t at = start;
            while (at != kNone && marks[at] == Mark::New) {
                marks[at] = Mark::OnPath;
                path.push_back(at);
                at = parents_[at];
            }
            if (at != kNone && marks[at] == Mark::OnPath)
                MakeRoot(*std::min_element(std::find(path.begin(), path.end(), at), path.end()));
            for (const std::size_t passed : path)
                marks[passed] = Mark::Done;
        }
    }

    void MakeRoot(std::size_t table)
    {
        parents_[table] = kNone;
        slots_[table]->Place = PlannedPlace::Root;
        slots_[table]->Parent.clear();
    }

    void Emit(std::size_t table)
    {
        std::vector<std::size_t> chain;
        for (std::size_t at = table; at != kNone && slots_[at]; at = parents_[at])
            chain.push_back(at);
        std::reverse(chain.begin(), chain.end());
        for (const std::size_t at : chain) {
            plan_.Classes.push_back(std::move(*slots_[at]));
            slots_[at].reset();
        }
    }

    const std::vector<CatalogTable>& tables_;
    const RelatedTables& relatedTables_;
    std::unordered_map<std::string, std::size_t> exact_;
    std::unordered_map<std::string, std::size_t> folded_;
    std::vector<std::optional<PlannedClass>> slots_; // by the catalog's order
    std::vector<std::size_t> parents_;
    DefinePlan plan_;
};

} // namespace

DefinePlan PlanDefinition(const std::vector<CatalogTable>& tables, const DefineRequest& request,
                          const RelatedTables& relatedTables)
{
    return Planner(tables, relatedTables).Plan(request);
}

} // namespace veldrane
