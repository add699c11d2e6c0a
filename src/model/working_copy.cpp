#include "model/working_copy.h"

namespace veldrane {
namespace {

// Of an item that owns no collection.
template <class Item>
std::shared_ptr<Item> PlainCopy(const Item& item)
{
    return std::make_shared<Item>(item);
}

// Of one that has a working copy of its own.
template <class Item>
std::shared_ptr<Item> CopyOfItem(const Item& item)
{
    return WorkingCopy(item);
}

template <class Collection, class Copy>
Collection CopyOf(const Collection& items, const Copy& copy)
{
    Collection copies;
    items.CopyInto(copies, copy);
    return copies;
}

std::shared_ptr<TTCEnum> CopyOfEnumeration(const TTCEnum& item)
{
    auto copy = std::make_shared<TTCEnum>();
    copy->EnumValues = CopyOf(item.EnumValues, PlainCopy<TTCEnumValue>);
    copy->EnumName = item.EnumName;
    return copy;
}

std::shared_ptr<TTCProperty> CopyOfProperty(const TTCProperty& item)
{
    auto copy = std::make_shared<TTCProperty>();
    copy->TTCLookupFields = CopyOf(item.TTCLookupFields, PlainCopy<TTCLookupField>);
    copy->PropertyName = item.PropertyName;
    copy->DataType = item.DataType;
    copy->Scope = item.Scope;
    copy->DefaultProperty = item.DefaultProperty;
    copy->AttributeDescription = item.AttributeDescription;
    copy->PropertyGet = item.PropertyGet;
    copy->PropertyLetSet = item.PropertyLetSet;
    copy->EnforceMaxLength = item.EnforceMaxLength;
    copy->MaxLength = item.MaxLength;
    copy->DisplayTruncationMessage = item.DisplayTruncationMessage;
    copy->FieldName = item.FieldName;
    copy->FieldDataType = item.FieldDataType;
    copy->FieldIsIdentityCol = item.FieldIsIdentityCol;
    copy->AddToClass = item.AddToClass;
    copy->LookupTable = item.LookupTable;
    copy->LookupJoinField = item.LookupJoinField;
    copy->LookupUseOuterJoin = item.LookupUseOuterJoin;
    copy->ReadOnly = item.ReadOnly;
    copy->PlusProperty = item.PlusProperty;
    copy->FieldAllowsNull = item.FieldAllowsNull;
    copy->FormatStringOnLet = item.FormatStringOnLet;
    copy->FormatStringOnGet = item.FormatStringOnGet;
    copy->FormatOnLet = item.FormatOnLet;
    copy->FormatOnGet = item.FormatOnGet;
    copy->AllowPropertyToBeNull = item.AllowPropertyToBeNull;
    copy->FieldReference = item.FieldReference;
    copy->FieldAlias = item.FieldAlias;
    copy->Include = item.Include;
    return copy;
}

std::shared_ptr<TTCRelationship> CopyOfRelationship(const TTCRelationship& item)
{
    auto copy = std::make_shared<TTCRelationship>();
    copy->ParentTableName = item.ParentTableName;
    copy->Columns = CopyOf(item.Columns, PlainCopy<TTCColumn>);
    copy->KeyName = item.KeyName;
    return copy;
}

std::shared_ptr<TTCKey> CopyOfKey(const TTCKey& item)
{
    auto copy = std::make_shared<TTCKey>();
    copy->TTCColumns = CopyOf(item.TTCColumns, PlainCopy<TTCColumn>);
    copy->KeyType = item.KeyType;
    return copy;
}

} // namespace

std::shared_ptr<ttcEvent> WorkingCopy(const ttcEvent& item)
{
    auto copy = std::make_shared<ttcEvent>();
    copy->EventName = item.EventName;
    copy->PlusEvent = item.PlusEvent;
    copy->TTCEventParameters = CopyOf(item.TTCEventParameters, PlainCopy<TTCParameter>);
    return copy;
}

std::shared_ptr<SP> WorkingCopy(const SP& item)
{
    auto copy = std::make_shared<SP>();
    copy->SPName = item.SPName;
    copy->SPMethodName = item.SPMethodName;
    copy->SPParameters = CopyOf(item.SPParameters, PlainCopy<SPParameter>);
    return copy;
}

std::shared_ptr<TTCMethod> WorkingCopy(const TTCMethod& item)
{
    auto copy = std::make_shared<TTCMethod>();
    copy->MethodName = item.MethodName;
    copy->ReturnDataType = item.ReturnDataType;
    copy->Scope = item.Scope;
    copy->DefaultMethod = item.DefaultMethod;
    copy->PlusMethod = item.PlusMethod;
    copy->Arguments = CopyOf(item.Arguments, PlainCopy<TTCParameter>);
    copy->MethodIsSP = item.MethodIsSP;
    copy->SPReturnValuesOnly = item.SPReturnValuesOnly;
    if (item.StoredProcedure)
        copy->StoredProcedure = WorkingCopy(*item.StoredProcedure);
    return copy;
}

std::shared_ptr<KZMClass> WorkingCopy(const KZMClass& item)
{
    auto copy = std::make_shared<KZMClass>();
    copy->TableName = item.TableName;
    copy->ClassName = item.ClassName;
    copy->ParentClassName = item.ParentClassName;
    copy->IsDomainTable = item.IsDomainTable;
    copy->Enumerations = CopyOf(item.Enumerations, CopyOfEnumeration);
    copy->TTCEvents = CopyOf(item.TTCEvents, CopyOfItem<ttcEvent>);
    copy->TTCProperties = CopyOf(item.TTCProperties, CopyOfProperty);
    copy->TTCMethods = CopyOf(item.TTCMethods, CopyOfItem<TTCMethod>);
    copy->TTCRelationships = CopyOf(item.TTCRelationships, CopyOfRelationship);
    copy->CreateCollection = item.CreateCollection;
    copy->CollectionName = item.CollectionName;
    copy->IncludeAddExisting = item.IncludeAddExisting;
    copy->RetrieveByIdentityCol = item.RetrieveByIdentityCol;
    copy->RetrieveByPrimaryKey = item.RetrieveByPrimaryKey;
    copy->TTCKeys = CopyOf(item.TTCKeys, CopyOfKey);
    copy->TTCMembers = CopyOf(item.TTCMembers, PlainCopy<TTCMember>);
    copy->ReadOnly = item.ReadOnly;
    copy->CollectionAddNewKey = item.CollectionAddNewKey;
    copy->DeleteByIdentityColumn = item.DeleteByIdentityColumn;
    copy->DeleteByPrimaryKey = item.DeleteByPrimaryKey;
    copy->IsMTSRequiredClass = item.IsMTSRequiredClass;
    return copy;
}

} // namespace veldrane
