// The list of units beside what the administration shows of one: names and links, with what native
// code tells of them.
//
// Options as those of `listPage`: table, select, emptied.

function unitList(options) {
    const units = listPage(
        Object.assign(
            {
                prefix: "",
                active: "device_active",
                empty: "Нет устройств",
                cells: (unit) => [
                    {name: "device_name", text: unit.name},
                    {name: "device_status", text: linkStates[unit.status].word, class: "user_state " + linkClasses[unit.status]},
                ],
                buttons: [],
            },
            options
        )
    );
    units.functions = {
        wrapperInput_device_add: (id, name, status) => units.add(id, {name: name, status: status}),
        wrapperInput_device_delete: (id) => units.remove(id),
        wrapperInput_device_setName: (id, name) => units.set(id, {name: name}),
        wrapperInput_device_linkOff: (id) => units.set(id, {status: 0}),
        wrapperInput_device_linkIncoming: (id) => units.set(id, {status: 1}),
        wrapperInput_device_linkOn: (id) => units.set(id, {status: 2}),
    };
    return units;
}
