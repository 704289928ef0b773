#pragma once

#include <cstdint>
#include <memory>

namespace tessaly
{

class ZEffect;
class ZEditorWrapper;
class ZEffectWrapper;
class ZGuiEditor;
class ZParameterStorageBase;
class ZPluginCore;

/// The object factory of the framework: what an instance is made of. One object per loaded library, counted by hand
/// since both halves of every instance hold it. Any thread: some hosts make and end instances on threads of their own.
class ZKvpFactory
{
public:
    ZKvpFactory (const ZKvpFactory&) = delete;
    ZKvpFactory& operator= (const ZKvpFactory&) = delete;

    /// The one factory, with a reference added for the caller; made on the first call.
    static ZKvpFactory* GetInstance ();
    /// Drops one reference; the last one deletes the factory.
    void Release ();

    virtual std::unique_ptr<ZEffect> CreateEffect (ZEffectWrapper* wrapper) = 0;
    virtual std::unique_ptr<ZPluginCore> CreateCore (ZEffect* effect) = 0;
    /// Makes the storage, fills it and hands it to `effect`, which owns it.
    virtual ZParameterStorageBase* CreateStorage (ZEffect& effect, std::int32_t channels) = 0;
    /// @param surroundings  borrowed: lives longer than the editor
    virtual std::unique_ptr<ZGuiEditor> CreateEditor (ZEditorWrapper& surroundings) = 0;

protected:
    ZKvpFactory () = default;
    virtual ~ZKvpFactory ();

private:
    std::int32_t references = 1;
};

/// Makes the objects of the strip: the one place that names its concrete classes.
class ZKvpPluginFactory final : public ZKvpFactory
{
public:
    std::unique_ptr<ZEffect> CreateEffect (ZEffectWrapper* wrapper) override;
    std::unique_ptr<ZPluginCore> CreateCore (ZEffect* effect) override;
    ZParameterStorageBase* CreateStorage (ZEffect& effect, std::int32_t channels) override;
    std::unique_ptr<ZGuiEditor> CreateEditor (ZEditorWrapper& surroundings) override;
};

/// Holds one reference on the factory for as long as it lives.
class FactoryReference
{
public:
    FactoryReference ()
        : factory (ZKvpFactory::GetInstance ())
    {
    }
    ~FactoryReference () { factory->Release (); }
    FactoryReference (const FactoryReference&) = delete;
    FactoryReference& operator= (const FactoryReference&) = delete;

    ZKvpFactory* operator->() const { return factory; }

private:
    ZKvpFactory* factory; // counted: one reference of this object's own
};

} // namespace tessaly
