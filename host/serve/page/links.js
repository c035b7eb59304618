// What belongs together: a word of the document, a step of the plug-in's, bytes of the record, a line of what is shown
// of it afterwards. The trace ties the first three; the fields that both directions of the contract name tie the last.

import { generic } from "./json.js";

const numbersOf = (text) => [...text.matchAll(/(?:\/|\[)(\d+)(?=\]|\/|$)/g)].map((match) => match[1]);
const genericField = (path) => path.replace(/\[\d+\]/g, "[]");

function concrete(pattern, mark, numbers, wrap) {
  let i = 0;
  let complete = true;
  const text = pattern.replaceAll(mark, () => {
    complete &&= i < numbers.length;
    return wrap(numbers[i++]);
  });
  return complete ? text : null;
}

const pointerOf = (path, numbers) => concrete(path, "*", numbers, (number) => number);
const fieldOf = (path, numbers) => concrete(path, "[]", numbers, (number) => `[${number}]`);

/** Ties between pointers of what is sent and of what is shown, by the fields behind them. */
export class Ties {
  constructor(contract) {
    this.inputs = new Map((contract.input?.keys ?? []).map((key) => [key.path, key]));
    this.outputs = new Map((contract.output?.keys ?? []).map((key) => [key.path, key]));
    this.outputByField = new Map();
    this.inputByField = new Map();
    for (const [keys, map] of [[this.inputs, this.inputByField], [this.outputs, this.outputByField]]) {
      for (const key of keys.values()) {
        for (const field of key.fields ?? []) {
          if (!map.has(field.path))
            map.set(field.path, key);
        }
      }
    }
  }

  #across(pointer, own, other, byField) {
    const path = generic(pointer);
    if (other.has(path))
      return pointer;
    for (const field of own.get(path)?.fields ?? []) {
      const key = byField.get(field.path);
      if (key)
        return pointerOf(key.path, numbersOf(pointer));
    }
    return null;
  }

  /** Where what was sent is shown, or null. */
  shownOf(pointer) { return this.#across(pointer, this.inputs, this.outputs, this.outputByField); }

  /** Where what is shown was sent, or null. */
  sentOf(pointer) { return this.#across(pointer, this.outputs, this.inputs, this.inputByField); }

  /** Where a field of the record is shown, or null. */
  shownOfField(name) {
    const key = this.outputByField.get(genericField(name));
    return key ? pointerOf(key.path, numbersOf(name)) : null;
  }

  /** The fields that are shown at a pointer. */
  fieldsShown(pointer) {
    return (this.outputs.get(generic(pointer))?.fields ?? [])
      .map((field) => fieldOf(field.path, numbersOf(pointer))).filter(Boolean);
  }
}

const NOTHING = { sent: [], shown: [], steps: [], ranges: [] };

/**
 * All that belongs to a target: {sent: pointer}, {shown: pointer}, {step: number} or {field: {block, offset, size, name}}.
 * places: where the image has a field, by its name.
 */
export function together(target, ties, steps, places) {
  if (!target)
    return NOTHING;
  const rangesOf = (numbers) => numbers.flatMap((i) => steps[i].stored.map((each) =>
    ({ block: each.block ?? "", offset: each.offset, size: each.size })));
  const stepsOf = (matches) => steps.flatMap((step, i) => (matches(step) ? [i] : []));
  const found = (sent, shown, numbers, ranges) =>
    ({ sent: sent.filter((each) => each !== null), shown: shown.filter((each) => each !== null), steps: numbers, ranges });

  if (target.field) {
    const { field } = target;
    const numbers = stepsOf((step) => step.stored.some((each) => (each.block ?? "") === field.block &&
      each.offset < field.offset + field.size && field.offset < each.offset + each.size));
    const shown = ties.shownOfField(field.name);
    return found(numbers.map((i) => steps[i].pointer), [shown, ...numbers.map((i) => ties.shownOf(steps[i].pointer))], numbers, [field]);
  }
  if (target.step !== undefined) {
    const { pointer } = steps[target.step];
    return found([pointer], [ties.shownOf(pointer)], [target.step], rangesOf([target.step]));
  }
  const sent = target.sent ?? ties.sentOf(target.shown);
  const own = sent === null ? [] : stepsOf((step) => step.pointer === sent);
  let ranges = rangesOf(own);
  if (ranges.length === 0 && sent !== null && sent !== "")
    ranges = rangesOf(stepsOf((step) => step.pointer.startsWith(`${sent}/`)));
  const shown = target.shown ?? ties.shownOf(sent);
  if (ranges.length === 0 && shown !== null)
    ranges = ties.fieldsShown(shown).flatMap((name) => places.get(name) ?? []);
  return found(sent === null ? [] : [sent], [shown], own, ranges);
}
