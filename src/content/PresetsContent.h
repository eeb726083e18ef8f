#pragma once

// The stores that hold presets: a writable folder of preset files (the user store) and a read-only
// signed package (factory content). Both hand a stored preset to the plug-in's preset load.

#include "ContentSource.h"
#include "PackageFile.h"
#include "Preset.h"

#include "PresetHost.h"

/** A store of presets of type P (a Preset or a product's subclass) for one plug-in slot. */
template <class P> class PresetsContent : public ContentSource
{
public:
    PresetsContent(const juce::String& storeName, PresetHost& owner, int presetSlot);

    /** Reads the preset, completes it and loads it into the slot; false when it cannot be read. */
    bool openItem(const juce::String& itemName) override;
    /** A new preset read from the store, or null. */
    virtual std::unique_ptr<P> readPreset(const juce::String& itemName, bool headerOnly) = 0;
    /** Fills in what the store knows and the preset lacks; nothing here. */
    virtual void completePreset(P& preset) { (void)preset; }

protected:
    PresetHost& plugin;
    const int slot;
};

/** The user's folder of preset files: every "*<extension>" file is an item named after it. */
template <class P> class PresetsDirectoryContent : public PresetsContent<P>
{
public:
    PresetsDirectoryContent(const juce::String& storeName, PresetHost& owner, int presetSlot, const juce::File& folder,
                            const juce::String& extension);

    bool isReadOnly() const override { return false; }
    bool canCreateItems() const override { return true; }
    /** The folder's child named after the item with the preset extension ("A.B" gives "A.vmprs2");
        an empty file for a name that is not storable, so nothing is made, moved or deleted. */
    juce::File getItemFile(const juce::String& itemName) const override;
    void collectTags(ContentTags& out) override;
    void loadItems(juce::OwnedArray<ContentItem>& out, TagRegistry* tagRegistry) override;
    bool deleteStoredItem(const juce::String& itemName) override;
    /** Moves the file; a change of letter case only is allowed, any other existing file at the new
        name is not (another file that differs only in case included). */
    bool renameStoredItem(const juce::String& oldName, const juce::String& newName) override;
    bool writeItemTags(const juce::String& itemName, const ContentTags& tags) override;
    /** Writes the plug-in's present values as a new preset (version "1.0", the given tags). */
    bool createItem(const juce::String& itemName, const ContentTags& tags) override;
    juce::String getExtension() const override { return extension; }
    ContentTags readItemTags(const juce::String& itemName) override;
    std::unique_ptr<P> readPreset(const juce::String& itemName, bool headerOnly) override;

    const juce::File& getFolder() const noexcept { return folder; }

private:
    juce::Array<juce::File> listFiles() const;

    juce::File folder;
    juce::String extension;
};

/** A signed package: read once at construction (headers only), served from memory afterwards. */
template <class P> class PresetsPackageContent : public PresetsContent<P>
{
public:
    PresetsPackageContent(const juce::String& storeName, PresetHost& owner, int presetSlot,
                          const juce::File& packageFile, const juce::String& extension, const juce::String& publicKey);

    void collectTags(ContentTags& out) override { out = unionOfTags; }
    void loadItems(juce::OwnedArray<ContentItem>& out, TagRegistry* tagRegistry) override;
    std::unique_ptr<P> readPreset(const juce::String& itemName, bool headerOnly) override;
    /** A preset without an author gets the package's. */
    void completePreset(P& preset) override;

    const PackageFile& getPackage() const noexcept { return package; }

private:
    juce::String extension;
    juce::StringArray presetNames;
    juce::Array<ContentTags> presetTags;
    ContentTags unionOfTags;
    PackageFile package;
};

extern template class PresetsContent<Preset>;
extern template class PresetsDirectoryContent<Preset>;
extern template class PresetsPackageContent<Preset>;
