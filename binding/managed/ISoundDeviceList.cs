// Copyright (c) 2026 The Sonimbra developers
// SPDX-License-Identifier: Zlib

using System;

namespace Sonimbra {

/// <summary>
/// The devices of a driver, as they were when the list was made. Record 0 always stands for the
/// default device. Any thread may read a list.
/// </summary>
public sealed class ISoundDeviceList : IDisposable {
    private readonly DeviceListHandle NativeList;

    /// <summary>Lists the devices of the driver that AutoDetect stands for.</summary>
    public ISoundDeviceList(SoundDeviceListType type) : this(type, SoundOutputDriver.AutoDetect) {}

    /// <summary>
    /// Lists the devices of a driver. One that has no device list on this system gives a list of
    /// the default device alone.
    /// </summary>
    public ISoundDeviceList(SoundDeviceListType type, SoundOutputDriver driver) {
        NativeMethods.CheckLibrary();
        NativeList = new DeviceListHandle(
            type == SoundDeviceListType.RecordingDevice
                ? NativeMethods.sonimbra_device_list_create_recording(driver, NativeMethods.Version)
                : NativeMethods.sonimbra_device_list_create(driver, NativeMethods.Version));
    }

    /// <summary>Lets go of the list; its members then return 0 or null.</summary>
    public void Dispose() {
        NativeList.Dispose();
    }

    /// <summary>Number of records, the default record included.</summary>
    public int DeviceCount {
        get {
            using (Borrowed list = NativeList.Borrow()) {
                return NativeMethods.sonimbra_device_list_get_device_count(list.Pointer);
            }
        }
    }

    /// <summary>
    /// The identifier of a record, to be passed to the constructor of <see cref="ISoundEngine"/>
    /// or <see cref="IAudioRecorder"/>; the empty text for the default device. Null when index is
    /// below 0 or not below the count.
    /// </summary>
    public string getDeviceID(int index) {
        using (Borrowed list = NativeList.Borrow()) {
            return NativeText.Decode(
                NativeMethods.sonimbra_device_list_get_device_id(list.Pointer, index));
        }
    }

    /// <summary>
    /// A description to show to people, in one line, read in the system's default 8-bit code page.
    /// Null when index is below 0 or not below the count.
    /// </summary>
    public string getDeviceDescription(int index) {
        using (Borrowed list = NativeList.Borrow()) {
            return NativeText.Decode(
                NativeMethods.sonimbra_device_list_get_device_description(list.Pointer, index));
        }
    }
}

}
