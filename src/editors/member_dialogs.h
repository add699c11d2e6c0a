#pragma once

#include "model/class.h"
#include "model/stored_procedures.h"

#include <memory>

namespace veldrane {

// The dialogs that the editor of a class opens for its members. Each works on the class that it is given, which stays
// as it was unless the dialog is left by OK: true then. One that is not there is as good as cancelled.
class MemberDialogs
{
  public:
    virtual ~MemberDialogs() = default;

    virtual bool AddMethod(KZMClass& /*item*/) { return false; }
    virtual bool EditMethod(KZMClass& /*item*/, const std::shared_ptr<TTCMethod>& /*method*/) { return false; }
    virtual bool AddBuiltInMethods(KZMClass& /*item*/) { return false; }

    // Fills `picked` with the procedures of the data source; those that were ticked have a SPMethodName.
    virtual bool PickProcedures(KZMClass& /*item*/, SPs& /*picked*/) { return false; }
    virtual bool AddProcedure(KZMClass& /*item*/, const std::shared_ptr<SP>& /*procedure*/) { return false; }
    virtual bool EditProcedure(KZMClass& /*item*/, const std::shared_ptr<TTCMethod>& /*method*/) { return false; }

    virtual bool AddEvent(KZMClass& /*item*/) { return false; }
    virtual bool EditEvent(KZMClass& /*item*/, const std::shared_ptr<ttcEvent>& /*event*/) { return false; }
    virtual bool AddBuiltInEvents(KZMClass& /*item*/) { return false; }

    virtual bool FieldProperties(KZMClass& /*item*/, const std::shared_ptr<TTCProperty>& /*property*/) { return false; }
    virtual bool AddProperty(KZMClass& /*item*/) { return false; }
    virtual bool EditProperty(KZMClass& /*item*/, const std::shared_ptr<TTCProperty>& /*property*/) { return false; }
    virtual bool AddBuiltInProperties(KZMClass& /*item*/) { return false; }
};

} // namespace veldrane
