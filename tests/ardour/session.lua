-- What tests/ardour/run and tests/ardour/window have Ardour's Lua host do: makes a session, or opens one and follows a
-- list of commands.
--   session.lua FOLDER NOTES make CHANNELS SECONDS
--   session.lua FOLDER NOTES open COMMAND...
-- NOTES is a file, which gets a line for each value read, and "done".
-- Commands: set:PARAMETER:PLAIN, lane:PARAMETER:SECOND=PLAIN,..., touch: (as lane:, but written anew by a touch),
-- read:PARAMETER, play:SECONDS, bounce, wait:SECONDS, save

local kPlugin = "5653546373744D74657373616C792072"
local kRate = 48000
local kUser = ARDOUR.TransportRequestSource.TRS_UI
local kNoGroup = PBD.GroupControlDisposition.NoGroup

local function note (text)
    local notes = io.open (arg[2], "a")
    notes:write (text, "\n")
    notes:close ()
end

local function wait (seconds) ARDOUR.LuaAPI.usleep (math.floor (seconds * 1000000)) end

local function openEngine ()
    local backend = AudioEngine:set_backend ("None (Dummy)", "", "")
    backend:set_device_name ("Silence")
    backend:set_sample_rate (kRate)
    backend:set_buffer_size (1024)
end

local function addTrack (session, name, channels)
    return session:new_audio_track (channels, channels, nil, 1, name, ARDOUR.PresentationInfo.max_order,
                                    ARDOUR.TrackMode.Normal, true):front ()
end

local function record (session, track, seconds)
    track:rec_enable_control ():set_value (1, kNoGroup)
    session:maybe_enable_record (true)
    session:request_roll (kUser)
    for _ = 1, seconds * 200 do -- of its own time, which falls behind on a busy machine; ten times as long at most
        if session:transport_sample () >= seconds * kRate then break end
        wait (0.05)
    end
    session:request_stop (false, false, kUser)
    wait (0.5)
    track:rec_enable_control ():set_value (0, kNoGroup)
    wait (0.3) -- the engine does it
end

-- A track "T" of recorded silence, whose samples the caller replaces, with the plug-in, and "REC", which records it.
local function make (folder, channels, seconds)
    local session = create_session (folder, "s", kRate)
    local track = addTrack (session, "T", channels)
    record (session, track, seconds)
    track:add_processor_by_index (ARDOUR.LuaAPI.new_plugin (session, kPlugin, ARDOUR.PluginType.VST3, ""), 0, nil, true)
    local recorder = addTrack (session, "REC", channels)
    for channel = 0, channels - 1 do
        recorder:input ():audio (channel):disconnect_all ()
        recorder:output ():audio (channel):disconnect_all () -- or an export has both
        recorder:input ():audio (channel):connect (track:output ():audio (channel):name ())
    end
    session:save_state ("", false, false, false, false, false)
end

local function addLane (processor, parameter, points, state)
    local lane = ARDOUR.LuaAPI.plugin_automation (processor, parameter)
    local id = Evoral.Parameter (ARDOUR.AutomationType.PluginAutomation, 0, parameter)
    lane:clear_list ()
    for second, value in points:gmatch ("([^=,]+)=([^,]+)") do
        lane:add (Temporal.timepos_t (math.floor (tonumber (second) * kRate)), tonumber (value), false, false)
    end
    processor:to_automatable ():automation_control (id, true):set_automation_state (state)
end

local function follow (session, command)
    local track = session:route_by_name ("T")
    local processor = track:nth_plugin (0)
    local verb, first, rest = command:match ("^(%a+):?([^:]*):?(.*)$")
    local number = tonumber (first)
    if verb == "set" then
        ARDOUR.LuaAPI.set_processor_param (processor, number, tonumber (rest))
        wait (0.1)
    elseif verb == "lane" then
        addLane (processor, number, rest, ARDOUR.AutoState.Play)
    elseif verb == "touch" then
        addLane (processor, number, rest, ARDOUR.AutoState.Touch)
    elseif verb == "read" then
        note (tostring (ARDOUR.LuaAPI.get_processor_param (processor, number)))
    elseif verb == "play" then
        session:request_locate (0, false, ARDOUR.LocateTransportDisposition.MustStop, kUser)
        wait (0.5)
        record (session, session:route_by_name ("REC"):to_track (), number)
    elseif verb == "bounce" then
        local progress = ARDOUR.InterThreadInfo ()
        local length = 3 * kRate
        track:to_track ():bounce_range (0, length, progress, processor, true, "BOUNCE")
    elseif verb == "wait" then
        wait (number)
    elseif verb == "save" then
        session:save_state ("", false, false, false, false, false)
    else
        error ("no such command: " .. command)
    end
end

local folder, verb = arg[1], arg[3]
openEngine ()
if verb == "make" then
    make (folder, tonumber (arg[4]), tonumber (arg[5]))
else
    local session = load_session (folder, "s")
    wait (0.7)
    for i = 4, #arg do follow (session, arg[i]) end
end
note ("done")
close_session ()
quit ()
