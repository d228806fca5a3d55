#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

/// Counted pointer to an object that has addRef() and release(). For database objects the count
/// is the number of open uses: releasing the last one closes the object and tells the reactors.
template <class T>
class OdSmartPtr
{
public:
    OdSmartPtr() = default;
    OdSmartPtr(std::nullptr_t) { }

    /// Takes over a reference that the caller already holds.
    static OdSmartPtr adopt(T* object)
    {
        OdSmartPtr result;
        result.m_object = object;
        return result;
    }

    explicit OdSmartPtr(T* object)
        : m_object(object)
    {
        retain();
    }
    OdSmartPtr(const OdSmartPtr& other)
        : m_object(other.m_object)
    {
        retain();
    }
    OdSmartPtr(OdSmartPtr&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    { }
    template <class U>
    requires std::is_convertible_v<U*, T*> OdSmartPtr(const OdSmartPtr<U>& other)
        : m_object(other.get())
    {
        retain();
    }

    ~OdSmartPtr() { reset(); }

    OdSmartPtr& operator=(OdSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    void reset()
    {
        if (T* object = std::exchange(m_object, nullptr))
            object->release();
    }
    /// Gives the reference up without releasing it.
    T* detach() { return std::exchange(m_object, nullptr); }

    T* get() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    bool isNull() const { return m_object == nullptr; }

    friend bool operator==(const OdSmartPtr& a, const OdSmartPtr& b)
    {
        return a.m_object == b.m_object;
    }

private:
    void retain()
    {
        if (m_object)
            m_object->addRef();
    }

    T* m_object = nullptr;
};
