#pragma once

#include <cstdint>

namespace tessaly
{

/// What every drawing mix-in holds: a record of what to draw while its pane is active and one for while it is not. The
/// record's kind says what it draws; kind 0, which a new one has, draws nothing. The kind alone can be switched without
/// loss of the rest. A mix-in knows no pane and no value: who changes a record marks the pane dirty.
/// @tparam Record  has `kind` and a constant kLastKind
template <typename Record>
class ZLookRecords
{
public:
    virtual ~ZLookRecords () = default;

    void SetRecordActive (const Record& record) { active = record; }
    void SetRecordInactive (const Record& record) { inactive = record; }
    const Record& GetRecordActive () const { return active; }
    const Record& GetRecordInactive () const { return inactive; }

    void SetKindActive0 () { active.kind = 0; }
    void SetKindActive1 () { active.kind = 1; }
    void SetKindActive2 () requires (Record::kLastKind >= 2) { active.kind = 2; }
    void SetKindActive3 () requires (Record::kLastKind >= 3) { active.kind = 3; }
    void SetKindInactive0 () { inactive.kind = 0; }
    void SetKindInactive1 () { inactive.kind = 1; }
    void SetKindInactive2 () requires (Record::kLastKind >= 2) { inactive.kind = 2; }
    void SetKindInactive3 () requires (Record::kLastKind >= 3) { inactive.kind = 3; }

protected:
    ZLookRecords () = default;
    ZLookRecords (const ZLookRecords&) = default;
    ZLookRecords& operator= (const ZLookRecords&) = default;

    Record active;
    Record inactive;
};

} // namespace tessaly
