#pragma once

#include "control.h"
#include "value_drag.h"
#include "vector_to_degree.h"
#include <cstdint>

namespace tessaly
{

enum DialDragMode : std::int32_t // any other value acts as kDialTurn
{
    kDialJump = 0,  // by the angle around the centre, the press jumps to the pointer
    kDialTurn = 1,  // by the angle, without a jump
    kDialLinear = 2 // straight: up and right increase
};

enum DialHit : std::int32_t // what HitTest tells apart
{
    kDialMiss = 0,
    kDialHit = 1,
    kDialOppositeGrip = 2, // opposite the pointer of the dial: drags from there, without a jump
    kDialRefused = 3,      // outside the sweep: no press
    kDialLabel = 4         // on a label, which has chosen the value
};

/// A knob. A drag by angle counts degrees from its start and is not held at the ends of the sweep, so the pointer must
/// come all the way back before the value moves again; the gap may be crossed and does not wrap. A straight drag is
/// ZValueDrag's. Angles are whole degrees as ZVectorToDegree has them.
class ZDial : public ZControl
{
public:
    ZDial (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId); ///< centred in its frame

    void SetDragMode (std::int32_t mode) { dragMode = mode; } ///< of DialDragMode
    std::int32_t GetDragMode () const { return dragMode; }
    void SetDirection (std::int32_t bits) { direction = bits; } ///< of Direction
    std::int32_t GetDirection () const { return direction; }
    void SetDegreeRange (std::int32_t begin, std::int32_t end); ///< absolute degrees
    std::int32_t GetBeginDegree () const { return beginDegree; }
    std::int32_t GetEndDegree () const { return endDegree; }
    void SetCenter (std::int32_t x, std::int32_t y) { SetCenter ({ x, y }); }
    void SetCenter (ZPoint point) { center = point; } ///< relative to the frame's top left
    ZPoint GetCenter () const { return center; }
    void SetOppositeGripEnabled (bool on) { oppositeGripEnabled = on; } ///< of kDialJump
    bool IsOppositeGripEnabled () const { return oppositeGripEnabled; }
    void SetGripTolerance (std::int32_t degrees); ///< clamped to 0 to 90
    std::int32_t GetGripTolerance () const { return gripTolerance; }
    void SetLinearScale (float steps) { linearScale = steps; } ///< steps a pixel
    float GetLinearScale () const { return linearScale; }

    // The value that the pointer asks for at a step of the drag
    virtual float DragValue (const ZMouseInput& mouse);        ///< in the present mode
    virtual float AngleValue (const ZMouseInput& mouse) const; ///< where it points to
    float CircularValue (const ZMouseInput& mouse);            ///< how far it has turned
    float LinearValue (const ZMouseInput& mouse);              ///< how far it has moved

    /// Sets sweep, direction and centre as they are now. @param opposite  turned round, for the opposite grip
    virtual void ConfigureVector (bool opposite, ZVectorToDegree& target) const;

    bool OnMouseDown (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseMove (ZEvent& event, const ZMouseInput& mouse) override;
    bool OnMouseUp (ZEvent& event, const ZMouseInput& mouse) override;
    std::int32_t HitTest (ZEvent& event, const ZMouseInput& mouse) override; ///< of DialHit

protected:
    /// A point seen from a sweep, in relative degrees.
    struct Aim
    {
        std::int32_t degree;
        std::int32_t begin;
        std::int32_t end;

        float Fraction (float whenNoSweep) const; ///< of the sweep, not clamped
    };
    static Aim AimOf (const ZVectorToDegree& sweep, ZPoint point);
    Aim AimAt (ZPoint point, bool opposite) const; ///< with the sweep as it is now

    /// Sets the vector of the present drag anew, as ConfigureVector says by now: for a dial whose frame changes under
    /// the hand, before it passes a move on. Anchor and turn stay.
    void ReconfigureDrag () { ConfigureVector (oppositeGrip, vector); }

private:
    void AnchorTurn (float from);
    void JumpTo (const ZMouseInput& mouse); // anchors the turn where the pointer is
    bool IsOnOppositeGrip (ZPoint point) const;

    std::int32_t dragMode = kDialLinear;
    std::int32_t direction = kClockwise;
    std::int32_t beginDegree = 30;
    std::int32_t endDegree = 330;
    ZPoint center;
    bool oppositeGripEnabled = false;
    std::int32_t gripTolerance = 30; // degrees
    float linearScale = 1.0f;        // steps a pixel

    // Of the present drag
    ZVectorToDegree vector;
    ZValueDrag drag; // the straight one; holds the fine modifier for all
    bool oppositeGrip = false;
    ZPoint lastPoint;
    float turnAnchor = 0.0f;     // the value that degrees are counted from
    std::int32_t lastDegree = 0; // relative
    std::int32_t degreeSum = 0;  // since turnAnchor
};

} // namespace tessaly
