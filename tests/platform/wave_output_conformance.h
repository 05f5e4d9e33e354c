// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Tests for every wave output, silent or not; see wave_output_fixture.h for the host. Instantiated by the tests of each
// implementation:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, WaveOutputConformance, Host);

#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>

#include "platform/wave_output_fixture.h"

namespace tonalith::testing {

TYPED_TEST_SUITE_P(WaveOutputConformance);

TYPED_TEST_P(WaveOutputConformance, PostsOneMessageAtTheEndOfASound) {
  const auto sound = this->Prepare(40);
  this->Output().Write(sound->device, sound->header);
  EXPECT_TRUE(this->received_.empty());
  this->WaitFor(1);
  this->host_.Pass(std::chrono::milliseconds(60));
  EXPECT_EQ(this->received_, typename TestFixture::Handles{sound->device});
}

TYPED_TEST_P(WaveOutputConformance, PlaysAPreparedSoundForEveryWrite) {
  const auto sound = this->Prepare(20);
  for (std::size_t times = 1; times <= 3; ++times) {
    this->Output().Write(sound->device, sound->header);
    this->WaitFor(times);
    EXPECT_EQ(this->received_.size(), times);
  }
}

TYPED_TEST_P(WaveOutputConformance, PostsOneMessageForAResetSoundImmediately) {
  const auto sound = this->Prepare(400);
  this->Output().Write(sound->device, sound->header);
  this->host_.Pass(std::chrono::milliseconds(0));
  this->Output().Reset(sound->device);
  this->Output().Reset(sound->device);
  this->WaitFor(1);
  this->host_.Pass(std::chrono::milliseconds(500));
  EXPECT_EQ(this->received_, typename TestFixture::Handles{sound->device});
}

TYPED_TEST_P(WaveOutputConformance, PostsNothingForTheResetOfAnIdleDevice) {
  const auto sound = this->Prepare(20);
  this->Output().Reset(sound->device);
  this->host_.Pass(std::chrono::milliseconds(60));
  EXPECT_TRUE(this->received_.empty());
}

TYPED_TEST_P(WaveOutputConformance, IgnoresAWriteToADeviceThatIsPlaying) {
  const auto sound = this->Prepare(60);
  this->Output().Write(sound->device, sound->header);
  this->Output().Write(sound->device, sound->header);
  this->WaitFor(1);
  this->host_.Pass(std::chrono::milliseconds(150));
  EXPECT_EQ(this->received_.size(), 1U);
}

TYPED_TEST_P(WaveOutputConformance, IgnoresAnUnpreparedHeader) {
  const auto sound = this->Prepare(20);
  this->Output().UnprepareHeader(sound->device, sound->header);
  this->Output().Write(sound->device, sound->header);
  this->host_.Pass(std::chrono::milliseconds(80));
  EXPECT_TRUE(this->received_.empty());
}

TYPED_TEST_P(WaveOutputConformance, ClosesAPlayingDeviceWithoutAMessage) {
  const auto sound = this->Prepare(60);
  this->Output().Write(sound->device, sound->header);
  this->Release(*sound);
  this->host_.Pass(std::chrono::milliseconds(150));
  EXPECT_TRUE(this->received_.empty());
}

TYPED_TEST_P(WaveOutputConformance, NeverConfusesADeviceWithItsSuccessor) {
  const auto first = this->Prepare(300);
  this->Output().Write(first->device, first->header);
  this->Output().Reset(first->device);
  this->Release(*first);
  const auto second = this->Prepare(50);
  EXPECT_NE(second->device, first->device);
  this->Output().Write(second->device, second->header);
  this->WaitFor(2);
  EXPECT_EQ(this->received_, (typename TestFixture::Handles{first->device, second->device}));
}

TYPED_TEST_P(WaveOutputConformance, DoesNotReuseHandles) {
  std::set<platform::WaveHandle> handles{platform::kNoWaveHandle};
  for (int i = 0; i < 300; ++i) {
    const platform::WaveHandle device = this->Output().Open(PlainFormat(), this->window_);
    EXPECT_TRUE(handles.insert(device).second) << device;
    this->Output().Close(device);
  }
}

TYPED_TEST_P(WaveOutputConformance, PlaysThirtyTwoDevicesAtOnce) {
  std::vector<std::unique_ptr<typename TestFixture::Prepared>> sounds;
  std::generate_n(std::back_inserter(sounds), 32, [this] { return this->Prepare(50); });
  for (const auto& sound : sounds) this->Output().Write(sound->device, sound->header);
  this->WaitFor(32);
  EXPECT_EQ(this->received_.size(), 32U);
  EXPECT_EQ(std::set(this->received_.begin(), this->received_.end()).size(), 32U) << "one message each";
}

TYPED_TEST_P(WaveOutputConformance, PostsTheMessageOfAnEmptySound) {
  const auto sound = this->Prepare(0);
  this->Output().Write(sound->device, sound->header);
  this->WaitFor(1);
  EXPECT_EQ(this->received_.size(), 1U);
}

TYPED_TEST_P(WaveOutputConformance, IgnoresAnInvalidHandle) {
  const auto closed = this->Prepare(20);
  this->Release(*closed);
  for (const platform::WaveHandle handle : {closed->device, platform::kNoWaveHandle, platform::WaveHandle{4711}}) {
    platform::WAVEHDR header;
    this->Output().PrepareHeader(handle, header);
    this->Output().Write(handle, header);
    this->Output().Reset(handle);
    this->Output().UnprepareHeader(handle, header);
    this->Output().Close(handle);
  }
  this->host_.Pass(std::chrono::milliseconds(50));
  EXPECT_TRUE(this->received_.empty());
}

TYPED_TEST_P(WaveOutputConformance, PlaysWithoutAWindow) {
  const auto sound = this->Prepare(std::chrono::milliseconds(20), platform::kNoWindow);
  this->Output().Write(sound->device, sound->header);
  this->host_.Pass(std::chrono::milliseconds(80));
  this->Output().Reset(sound->device);
  EXPECT_TRUE(this->received_.empty());
}

REGISTER_TYPED_TEST_SUITE_P(WaveOutputConformance, PostsOneMessageAtTheEndOfASound, PlaysAPreparedSoundForEveryWrite,
                            PostsOneMessageForAResetSoundImmediately, PostsNothingForTheResetOfAnIdleDevice,
                            IgnoresAWriteToADeviceThatIsPlaying, IgnoresAnUnpreparedHeader,
                            ClosesAPlayingDeviceWithoutAMessage, NeverConfusesADeviceWithItsSuccessor,
                            DoesNotReuseHandles, PlaysThirtyTwoDevicesAtOnce, PostsTheMessageOfAnEmptySound,
                            IgnoresAnInvalidHandle, PlaysWithoutAWindow);

}  // namespace tonalith::testing
