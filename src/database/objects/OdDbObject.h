#pragma once

#include "database/values/OdDbObjectId.h"
#include "database/values/OdError.h"

#include <memory>

class OdDbDatabase;
struct OdDbObjectImage;

enum class OdDbObjectKind : quint8 {
    Unknown,
    Entity,
    Viewport,
    Layer,
    Linetype,
    BlockTableRecord,
    SymbolTableRecord, ///< of a table that this program keeps but does not interpret
    SymbolTable,
    LayerTable,
    Dictionary,
    Xrecord,
    Layout,
    DictionaryVar,
};

/// Base of everything that lives in a drawing. Objects are owned by their database and reached
/// through ids; an open use is an OdSmartPtr.
class OdDbObject
{
public:
    static constexpr const char* kClassName = "OdDbObject";
    static bool isKind(OdDbObjectKind) { return true; }

    OdDbObject(const OdDbObject&) = delete;
    OdDbObject& operator=(const OdDbObject&) = delete;
    virtual ~OdDbObject();

    virtual OdDbObjectKind kind() const { return OdDbObjectKind::Unknown; }
    OdDbObjectId objectId() const { return m_id; }
    OdDbDatabase* database() const { return m_id.database(); }
    OdDbHandle getDbHandle() const { return m_id.getHandle(); }
    OdDbObjectId ownerId() const;
    bool isErased() const;
    /// Erases, or brings back, the object. It must be open for write.
    void erase(bool erasing = true);
    bool isWriteEnabled() const { return m_writers > 0; }

    /// Open count; use OdSmartPtr.
    void addRef() { ++m_openCount; }
    void release();

protected:
    OdDbObject() = default;

    /// To be called by every setter before it changes the state: keeps the before-image on the
    /// first change inside an undo record. Raises OdError_NotOpenForWrite.
    void assertWriteEnabled();

    /// A copy of the state, for the undo journal; null for objects without state of their own.
    virtual std::unique_ptr<OdDbObjectImage> captureImage() const;
    /// Exchanges the state with the image.
    virtual void swapImage(OdDbObjectImage& image);
    /// Called after the state was exchanged by undo or redo.
    virtual void imageSwapped() { }
    void requireWriteEnabled() const;

private:
    friend class OdDbDatabase;
    friend class UndoJournal;

    OdDbObjectId m_id;
    int m_openCount = 0;
    int m_writers = 0;
    bool m_modified = false;
    quint64 m_imageRecord = 0; ///< undo record that holds the before-image
};

/// Before-image of an object's state.
struct OdDbObjectImage
{
    virtual ~OdDbObjectImage() = default;
};

/// Base for objects whose whole state is one copyable value.
template <class Base, class State>
class OdDbStateful : public Base
{
public:
    /// For codecs only: the state as a whole.
    const State& state() const { return m_state; }
    State& stateForLoading() { return m_state; }

protected:
    struct Image : OdDbObjectImage
    {
        explicit Image(const State& s)
            : state(s)
        { }
        State state;
    };
    std::unique_ptr<OdDbObjectImage> captureImage() const override
    {
        return std::make_unique<Image>(m_state);
    }
    void swapImage(OdDbObjectImage& image) override
    {
        std::swap(m_state, static_cast<Image&>(image).state);
    }

    /// Writes one member of the state; nothing happens when it has the value already.
    template <class Value>
    void assign(Value State::*member, const Value& value)
    {
        this->requireWriteEnabled();
        if (m_state.*member == value)
            return;
        this->assertWriteEnabled();
        m_state.*member = value;
    }

    State m_state;
};
