// The ids of new records.

const LONGEST = 128; // bytes

/** An id for a record beside others, counted on from the last one's; empty where there is nothing to count on from. */
export function suggestedId(ids) {
  const parts = /^(.*?)(\d+)(\D*)$/s.exec(ids.at(-1) ?? "");
  if (!parts)
    return "";
  const [, before, digits, behind] = parts;
  for (let number = BigInt(digits) + 1n; ; ++number) {
    const id = before + String(number).padStart(digits.length, "0") + behind;
    if (!ids.includes(id))
      return id;
  }
}

/** Why a new record cannot have an id beside others; empty where it can. */
export function faultOfId(id, ids) {
  if (id === "")
    return "The id is missing.";
  if (new TextEncoder().encode(id).length > LONGEST)
    return `An id has at most ${LONGEST} bytes.`;
  return ids.includes(id) ? `There is a record ${id} already.` : "";
}
