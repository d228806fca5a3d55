#pragma once

#include <QString>

/// A run-time extension module as the host sees it.
class OdRxModule
{
public:
    virtual ~OdRxModule() = default;
    virtual void addRef() = 0;
    virtual void release() = 0;
    virtual int numRefs() const = 0;
    /// Called once after loading.
    virtual void initApp() = 0;
    /// Called once before unloading.
    virtual void uninitApp() = 0;
    virtual QString moduleName() const = 0;
};

/// A module that lives in a shared library and knows the handle it was loaded with.
class OdRxWin32Module : public OdRxModule
{
public:
    /// `instance`: the address of a symbol inside the library, or the platform's module handle.
    explicit OdRxWin32Module(void* instance)
        : m_instance(instance)
    { }
    void* moduleHandle() const { return m_instance; }
    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    int numRefs() const override { return m_references; }

protected:
    int m_references = 0;

private:
    void* m_instance;
};
